; The checks that every mapper file builds on: reading the PRG bank markers
; through the four 8 KB windows, the CHR unit markers through the PPU, CHR-RAM,
; and the nametable layout. Each check counts its cases in CaseNumber and ends
; the run through Fail at the first wrong answer.

; Copies BankProbe to RAM, where it keeps running while it switches banks.
CopyBankProbe:
  LDX #BankProbeEnd - BankProbe - 1
.Copy:
  LDA BankProbe,X
  STA BANK_PROBE,X
  DEX
  BPL .Copy
  RTS

; Switches banks with ProbeWrites writes of ProbeValue to [ProbeTarget], shifting
; the value right after each write so that serial registers get it bit by bit;
; copies the marker of each 8 KB window to ProbeMarkers; then switches back the
; same way with RestoreValue and [RestoreTarget]. Runs from RAM: it jumps by
; relative branches only.
BankProbe:
  LDY #0
  LDA <ProbeValue
  LDX <ProbeWrites
  BEQ .Read
.Select:
  STA [ProbeTarget],Y
  LSR A
  DEX
  BNE .Select
.Read:
  LDX #3
.Marker:
  LDA $8000,X
  STA ProbeMarkers,X
  LDA $A000,X
  STA ProbeMarkers+4,X
  LDA $C000,X
  STA ProbeMarkers+8,X
  LDA $E000,X
  STA ProbeMarkers+12,X
  DEX
  BPL .Marker
  LDA <RestoreValue
  LDX <ProbeWrites
  BEQ .Done
.Restore:
  STA [RestoreTarget],Y
  LSR A
  DEX
  BNE .Restore
.Done:
  RTS
BankProbeEnd:

; Runs the bank probe; fails the PRG check unless window n shows this game's
; bank Expect+n, for the four windows.
ProbePrg:
  INC <CaseNumber
  JSR BANK_PROBE
  LDX #0
  LDY #0
.Window:
  LDA ProbeMarkers,X
  CMP #'Z'
  BNE .Wrong
  LDA ProbeMarkers+1,X
  CMP #'B'
  BNE .Wrong
  LDA ProbeMarkers+2,X
  CMP #GAME_ID
  BNE .Wrong
  LDA ProbeMarkers+3,X
  CMP Expect,Y
  BNE .Wrong
  INX
  INX
  INX
  INX
  INY
  CPY #4
  BNE .Window
  RTS
.Wrong:
  STA <Seen
  LDA #CHECK_PRG
  JMP Fail

; Probes with one latch write of A and back to 0; the writes meet ROM bytes of
; the same value, so boards with bus conflicts see them unchanged.
LatchProbe:
  STA <ProbeValue
  STA <ProbeTarget
  LDA #HIGH(IDENTITY_TABLE)
  STA <ProbeTarget+1
  STA <RestoreTarget+1
  LDA #0
  STA <RestoreValue
  STA <RestoreTarget
  LDA #1
  STA <ProbeWrites
  JMP ProbePrg

; Writes A to a latch register where the ROM holds the same byte.
WriteLatch:
  TAX
  STA IDENTITY_TABLE,X
  RTS

; PRG that does not switch: 16 KB shows twice, 32 KB once.
CheckFixedPrg:
  LDA #0
  STA <ProbeWrites
  LDX #3
.Window:
  TXA
  AND #PRG_BANKS - 1
  STA Expect,X
  DEX
  BPL .Window
  JMP ProbePrg

; Expects A, A+1, ... in Y entries of Expect from entry X on.
ExpectRun:
  STA Expect,X
  CLC
  ADC #1
  INX
  DEY
  BNE ExpectRun
  RTS

; Exchanges the expected units of the two pattern tables.
SwapPatternTables:
  LDX #3
.Swap:
  LDA Expect,X
  LDY Expect+4,X
  STA Expect+4,X
  TYA
  STA Expect,X
  DEX
  BPL .Swap
  RTS

; Fails the CHR check unless 1 KB slot n of the pattern tables shows this
; game's unit Expect+n, for the eight slots.
CheckChrSlots:
  INC <CaseNumber
  BIT PPU_STATUS
  LDY #0
.Slot:
  TYA
  ASL A
  ASL A
  ORA #$03
  STA PPU_ADDRESS
  LDA #$FC
  STA PPU_ADDRESS
  LDA PPU_DATA           ; the first read only fills the PPU's buffer
  LDA PPU_DATA
  CMP #'Z'
  BNE .Wrong
  LDA PPU_DATA
  CMP #'C'
  BNE .Wrong
  LDA PPU_DATA
  CMP #GAME_ID
  BNE .Wrong
  LDA PPU_DATA
  CMP Expect,Y
  BNE .Wrong
  INY
  CPY #8
  BNE .Slot
  RTS
.Wrong:
  STA <Seen
  LDA #CHECK_CHR
  JMP Fail

  .IF CHR_UNITS = 0
; Fills the 8 KB of CHR-RAM with a pattern that differs from page to page and
; reads it back; Seen is the first page that came back wrong.
CheckChrRam:
  INC <CaseNumber
  BIT PPU_STATUS
  LDA #0
  STA PPU_ADDRESS
  STA PPU_ADDRESS
  STA <Bank
.WritePage:
  LDY #0
.Write:
  TYA
  CLC
  ADC <Bank
  STA PPU_DATA
  INY
  BNE .Write
  INC <Bank
  LDA <Bank
  CMP #32
  BNE .WritePage
  LDA #0
  STA PPU_ADDRESS
  STA PPU_ADDRESS
  STA <Bank
  LDA PPU_DATA
.ReadPage:
  LDY #0
.Read:
  TYA
  CLC
  ADC <Bank
  CMP PPU_DATA
  BNE .Wrong
  INY
  BNE .Read
  INC <Bank
  LDA <Bank
  CMP #32
  BNE .ReadPage
  RTS
.Wrong:
  LDA <Bank
  STA <Seen
  LDA #CHECK_CHR
  JMP Fail
  .ENDIF

; Fails the mirroring check unless the nametables show the layout in A
; (MIRROR_HORIZONTAL, MIRROR_VERTICAL or MIRROR_ONE_SCREEN). Each nametable
; gets its number 1-4 in its first byte, in order; reading them back tells
; which of them share memory.
CheckMirroring:
  INC <CaseNumber
  ASL A
  ASL A
  TAY
  BIT PPU_STATUS
  LDX #0
.Write:
  LDA NametableHigh,X
  STA PPU_ADDRESS
  LDA #0
  STA PPU_ADDRESS
  INX
  STX PPU_DATA
  CPX #4
  BNE .Write
  LDX #0
.Read:
  LDA NametableHigh,X
  STA PPU_ADDRESS
  LDA #0
  STA PPU_ADDRESS
  LDA PPU_DATA
  LDA PPU_DATA
  CMP MirrorLayouts,Y
  BNE .Wrong
  INY
  INX
  CPX #4
  BNE .Read
  RTS
.Wrong:
  STA <Seen
  LDA #CHECK_MIRRORING
  JMP Fail

NametableHigh:
  .DB $20, $24, $28, $2C
; What the four nametables read back, by layout.
MirrorLayouts:
  .DB 2, 2, 4, 4         ; horizontal
  .DB 3, 4, 3, 4         ; vertical
  .DB 4, 4, 4, 4         ; one screen
