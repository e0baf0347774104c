; MMC3 (mapper 4): 8 KB PRG banks at $8000 and $A000 with the second-last bank
; at $C000 and the last at $E000 (a mode bit swaps $8000 and $C000); 2 KB and
; 1 KB CHR banks (a mode bit swaps the pattern tables); mirroring by register;
; and the scanline counter with its IRQ.

RESET_LATCH = 0          ; the stub's write lands in $E000-$FFFF: IRQ off

MMC3_SELECT     = $8000
MMC3_DATA       = $8001
MMC3_MIRRORING  = $A000
MMC3_IRQ_LATCH  = $C000
MMC3_IRQ_RELOAD = $C001
MMC3_IRQ_OFF    = $E000
MMC3_IRQ_ON     = $E001

PRG_MODE_SWAPPED = $40
CHR_MODE_SWAPPED = $80

MapperInit:
MapperHome:
  LDX #7
.Register:
  STX MMC3_SELECT
  LDA Mmc3Home,X
  STA MMC3_DATA
  DEX
  BPL .Register
  LDA #0
  STA MMC3_MIRRORING     ; vertical
  STA MMC3_IRQ_OFF
  RTS

; R0-R5: the CHR units in order; R6, R7: PRG banks 0 and 1
Mmc3Home:
  .DB 0, 2, 4, 5, 6, 7, 0, 1

; Loads A into register X (with the mode bits).
Mmc3Bank:
  STX MMC3_SELECT
  STA MMC3_DATA
  RTS

; Every bank at $8000 (also by a number past the size), at $A000 and, with the
; mode bit, at $C000; the fixed banks in their places.
TestPrg:
  LDA #0
  STA <ProbeWrites       ; $E000 stays: switch from here, probe in place
  STA <Bank
  LDA #PRG_BANKS - 2
  LDX #2
  LDY #2
  JSR ExpectRun
.Bank:
  LDA <Bank
  STA Expect
  CLC
  ADC #PRG_BANKS
  LDX #6
  JSR Mmc3Bank
  LDA #PRG_BANKS - 1     ; $A000 takes the bank from the other end
  SEC
  SBC <Bank
  STA Expect+1
  LDX #7
  JSR Mmc3Bank
  JSR ProbePrg
  LDA <Bank
  STA Expect+2
  LDX #6 | PRG_MODE_SWAPPED
  JSR Mmc3Bank
  LDA #PRG_BANKS - 2
  STA Expect
  JSR ProbePrg
  LDA #PRG_BANKS - 2
  STA Expect+2
  INC <Bank
  LDA <Bank
  CMP #PRG_BANKS
  BNE .Bank
  JMP MapperHome

  .IF CHR_UNITS = 0
TestChr:
  JMP CheckChrRam
  .ELSE
; Unit numbers past the size wrap only where the board masks them: COOLBOY
; masks CHR at 128 KB at the least.
  .IF CHR_UNITS >= 128
CHR_WRAP = CHR_UNITS
  .ELSE
CHR_WRAP = 0
  .ENDIF

; Every 1 KB unit through the 2 KB and the 1 KB registers (also by numbers
; past the size), with the pattern tables in both orders.
TestChr:
  LDA #0
  STA <Bank
.Unit:
  JSR SetChrValues
  LDA #0
  JSR LoadChrRegisters
  JSR ExpectChrValues
  JSR CheckChrSlots
  LDA #CHR_MODE_SWAPPED
  JSR LoadChrRegisters
  JSR SwapPatternTables
  JSR CheckChrSlots
  INC <Bank
  LDA <Bank
  CMP #LOW(CHR_UNITS)
  BNE .Unit
  JMP MapperHome

; R0-R5 for unit Bank: the unit itself, the unit from the other end, the unit
; past the size, and the unit half way round.
SetChrValues:
  LDA <Bank
  STA <MapperRegs
  STA <MapperRegs+2
  CLC
  ADC #LOW(CHR_WRAP)
  STA <MapperRegs+4
  LDA #CHR_UNITS - 1
  SEC
  SBC <Bank
  STA <MapperRegs+1
  STA <MapperRegs+3
  LDA <Bank
  CLC
  ADC #CHR_UNITS / 2
  AND #CHR_UNITS - 1
  STA <MapperRegs+5
  RTS

; Loads R0-R5 from MapperRegs; A = the CHR mode bit.
LoadChrRegisters:
  STA <Expected
  LDX #5
.Register:
  TXA
  ORA <Expected
  STA MMC3_SELECT
  LDA <MapperRegs,X
  STA MMC3_DATA
  DEX
  BPL .Register
  RTS

; What the slots show for MapperRegs with the mode bit clear: units past the
; size wrap.
ExpectChrValues:
  LDA <MapperRegs
  AND #$FE
  STA Expect
  ORA #1
  STA Expect+1
  LDA <MapperRegs+1
  AND #$FE
  STA Expect+2
  ORA #1
  STA Expect+3
  LDX #3
.Unit:
  LDA <MapperRegs+2,X
  AND #CHR_UNITS - 1
  STA Expect+4,X
  DEX
  BPL .Unit
  RTS
  .ENDIF

TestMirroring:
  LDA #0
  STA MMC3_MIRRORING
  LDA #MIRROR_VERTICAL
  JSR CheckMirroring
  LDA #1
  STA MMC3_MIRRORING
  LDA #MIRROR_HORIZONTAL
  JSR CheckMirroring
  JMP MapperHome

; The scanline counter, with rendering on: reloaded in vblank with latch L, it
; raises the IRQ about L + 21 lines after the NMI. The time to the IRQ is
; measured in rounds of a 14-cycle loop, 8.1 rounds a line; an early and a
; late latch must give about the time of their lines, and a counter switched
; off must stay silent.
IRQ_LATCH_EARLY = 40
IRQ_LATCH_LATE  = 120
IRQ_GIVE_UP     = 12     ; rounds / 256: well over a frame

TestIrq:
  LDA #IRQ_LATCH_EARLY
  JSR TimeIrq
  LDY #0
  JSR CheckRounds
  LDA <LoopCount
  STA <EarlyCount
  LDA <LoopCount+1
  STA <EarlyCount+1
  LDA #IRQ_LATCH_LATE
  JSR TimeIrq
  SEC
  LDA <LoopCount
  SBC <EarlyCount
  STA <LoopCount
  LDA <LoopCount+1
  SBC <EarlyCount+1
  STA <LoopCount+1
  LDY #4
  JSR CheckRounds
  INC <CaseNumber
  LDA #0
  STA <IrqCount
  CLI
  JSR WaitNmi
  JSR WaitNmi
  SEI
  LDA <IrqCount
  BNE IrqWrong
  RTS

; Rounds from the NMI to the IRQ as least and most: the early latch, then the
; lines between the two latches.
IrqRoundLimits:
  .DW 400, 600
  .DW 560, 740

; A = latch: reloads the counter in vblank and counts loop rounds until the IRQ.
TimeIrq:
  STA <IrqLatch
  JSR WaitNmi
  LDA <IrqLatch
  STA MMC3_IRQ_LATCH
  STA MMC3_IRQ_RELOAD
  STA MMC3_IRQ_ON
  LDA #0
  STA <IrqCount
  STA <LoopCount
  STA <LoopCount+1
  CLI
.Count:
  INC <LoopCount
  BNE .Same
  INC <LoopCount+1
  LDA <LoopCount+1
  CMP #IRQ_GIVE_UP
  BEQ .Missing
.Same:
  LDA <IrqCount
  BEQ .Count
  SEI
  RTS
.Missing:
  INC <CaseNumber
  JMP IrqWrong

; Fails the IRQ check unless LoopCount lies within the limits at IrqRoundLimits+Y.
CheckRounds:
  INC <CaseNumber
  LDA <LoopCount
  CMP IrqRoundLimits,Y
  LDA <LoopCount+1
  SBC IrqRoundLimits+1,Y
  BCC IrqWrong
  LDA IrqRoundLimits+2,Y
  CMP <LoopCount
  LDA IrqRoundLimits+3,Y
  SBC <LoopCount+1
  BCC IrqWrong
  RTS

; Seen: the rounds counted, divided by 8.
IrqWrong:
  SEI
  LSR <LoopCount+1
  ROR <LoopCount
  LSR <LoopCount+1
  ROR <LoopCount
  LSR <LoopCount+1
  ROR <LoopCount
  LDA <LoopCount
  STA <Seen
  LDA #CHECK_IRQ
  JMP Fail

Irq:
  STA MMC3_IRQ_OFF       ; acknowledges, and no more until the next TimeIrq
  INC <IrqCount
  RTI
