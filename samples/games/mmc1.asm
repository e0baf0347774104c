; MMC1 (mapper 1): every register loads through one serial port, one bit per
; write, five writes. The control register picks 32 KB or 16 KB PRG banking
; (with the first or the last bank fixed), 8 KB or 4 KB CHR banking and one of
; four nametable layouts.

RESET_LATCH = $80        ; bit 7 resets the port and fixes the last bank at $C000

MMC1_CONTROL = 0         ; register numbers for Mmc1Write
MMC1_CHR0    = 1
MMC1_CHR1    = 2
MMC1_PRG     = 3

CONTROL_HOME        = %11110 ; 4 KB CHR, last bank fixed at $C000, vertical
CONTROL_FIRST_FIXED = %11010 ; first bank fixed at $8000, 16 KB at $C000 switch
CONTROL_PRG_32K     = %10010 ; 32 KB PRG banks
CONTROL_CHR_8K      = %01110 ; one 8 KB CHR bank
CONTROL_LAYOUT      = %11100 ; CONTROL_HOME without its mirroring bits

PRG_16K_BANKS = PRG_BANKS / 2
PRG_WRAP = PRG_16K_BANKS & 15 ; a bank number past the size, where the register has room

MapperInit:
  LDA #$80
  STA $8000
MapperHome:
  LDX #3
.Register:
  LDA Mmc1Home,X
  JSR Mmc1Write
  DEX
  BPL .Register
  RTS

; control, CHR 0, CHR 1, PRG
Mmc1Home:
  .DB CONTROL_HOME, 0, 1, 0
Mmc1RegisterHigh:
  .DB $80, $A0, $C0, $E0

; Loads A into the control register.
Mmc1Control:
  LDX #MMC1_CONTROL
; Loads A into register X; keeps X.
Mmc1Write:
  PHA
  LDA Mmc1RegisterHigh,X
  STA <RegisterPointer+1
  LDA #0
  STA <RegisterPointer
  TAY
  LDA #5
  STA <BitCount
  PLA
.Bit:
  STA [RegisterPointer],Y
  LSR A
  DEC <BitCount
  BNE .Bit
  RTS

; Probes with A loaded into register X, and back to the register's home value.
Mmc1Probe:
  STA <ProbeValue
  LDA Mmc1RegisterHigh,X
  STA <ProbeTarget+1
  STA <RestoreTarget+1
  LDA Mmc1Home,X
  STA <RestoreValue
  LDA #0
  STA <ProbeTarget
  STA <RestoreTarget
  LDA #5
  STA <ProbeWrites
  JMP ProbePrg

; Every 16 KB bank at $8000 (also by a number past the size) and at $C000,
; and every 32 KB bank.
TestPrg:
  LDA #0
  STA <Bank
.Bank:
  LDA <Bank
  ASL A
  LDX #0
  LDY #2
  JSR ExpectRun
  LDA #PRG_BANKS - 2
  LDY #2
  JSR ExpectRun
  LDA <Bank
  ORA #PRG_WRAP
  LDX #MMC1_PRG
  JSR Mmc1Probe
  LDA <Bank
  LDX #MMC1_PRG
  JSR Mmc1Write          ; moves $8000 only: this code stays
  LDA #0
  LDX #0
  LDY #2
  JSR ExpectRun
  LDA <Bank
  ASL A
  LDY #2
  JSR ExpectRun
  LDA #CONTROL_FIRST_FIXED
  LDX #MMC1_CONTROL
  JSR Mmc1Probe
  LDA <Bank
  AND #$FE
  ASL A
  LDX #0
  LDY #4
  JSR ExpectRun
  LDA #CONTROL_PRG_32K
  LDX #MMC1_CONTROL
  JSR Mmc1Probe
  INC <Bank
  LDA <Bank
  CMP #PRG_16K_BANKS
  BNE .Bank
  JMP MapperHome

  .IF CHR_UNITS = 0
TestChr:
  JMP CheckChrRam
  .ELSE
CHR_4K_BANKS = CHR_UNITS / 4
; Every 4 KB bank in the lower half with another in the upper half, and
; every 8 KB bank.
TestChr:
  LDA #0
  STA <Bank
.Bank:
  LDA <Bank
  LDX #MMC1_CHR0
  JSR Mmc1Write
  LDA <Bank
  ASL A
  ASL A
  LDX #0
  LDY #4
  JSR ExpectRun
  LDA #CHR_4K_BANKS - 1
  SEC
  SBC <Bank
  PHA
  LDX #MMC1_CHR1
  JSR Mmc1Write
  PLA
  ASL A
  ASL A
  LDX #4
  LDY #4
  JSR ExpectRun
  JSR CheckChrSlots
  LDA #CONTROL_CHR_8K
  JSR Mmc1Control
  LDA <Bank
  AND #$FE
  ASL A
  ASL A
  LDX #0
  LDY #8
  JSR ExpectRun
  JSR CheckChrSlots
  LDA #CONTROL_HOME
  JSR Mmc1Control
  INC <Bank
  LDA <Bank
  CMP #CHR_4K_BANKS
  BNE .Bank
  JMP MapperHome
  .ENDIF

TestMirroring:
  LDA #CONTROL_LAYOUT | 2
  JSR Mmc1Control
  LDA #MIRROR_VERTICAL
  JSR CheckMirroring
  LDA #CONTROL_LAYOUT | 3
  JSR Mmc1Control
  LDA #MIRROR_HORIZONTAL
  JSR CheckMirroring
  LDA #CONTROL_LAYOUT | 0
  JSR Mmc1Control
  LDA #MIRROR_ONE_SCREEN
  JSR CheckMirroring
  JSR CheckScreenPages
  JMP MapperHome

; A = page.
SelectScreen:
  ORA #CONTROL_LAYOUT
  JMP Mmc1Control

  INCLUDE "one_screen.asm"
