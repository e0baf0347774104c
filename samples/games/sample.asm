; A sample game: a small NES program that checks the board it runs on and shows
; PASS or FAIL. Multicart tests start it from a menu and read its verdict from RAM.
;
; The including file defines, before it includes this one:
;   GAME_ID    1-255; also stands in every bank marker, so a bank of another
;              game shows up as wrong
;   MAPPER     iNES mapper: 0, 1, 2, 3, 4, 7 or 66
;   PRG_BANKS  PRG size in 8 KB banks
;   CHR_UNITS  CHR-ROM size in 1 KB units; 0 for 8 KB of CHR-RAM
;   MIRRORING  what the header's mirroring bit promises: MIRROR_HORIZONTAL or
;              MIRROR_VERTICAL (only read where the board fixes it)
;   GameTitle, GameInfo, GameMirroring: length-prefixed texts for the screen
; and selects, at $E004, the PRG bank that sits at $E000 once the board is in
; its home state (the bank's marker takes $E000-$E003). It also writes the bank
; markers, and the top of each switchable unit:
;   every 8 KB PRG bank starts with    "ZB", GAME_ID, bank number
;   every 1 KB CHR unit ends ($3FC) with "ZC", GAME_ID, unit number
;   $FE00-$FEFF of each unit's top bank holds the bytes 0-255 (IDENTITY_TABLE),
;   $FFF0 a reset stub that writes RESET_LATCH and jumps to Reset, and the vectors.
;
; Result block in RAM, read by the emulator tests:
;   $0700-$0706  "ZUNBRIX"
;   $0707        GAME_ID
;   $0708        state: 0 while checking, 'P' passed, 'F' failed
;   $0709        failed check: 0 none, 1 PRG, 2 CHR, 3 mirroring, 4 IRQ
;   $070A        case number within that check (counts from 1)
;   $070B        what the failing case saw: a bank, unit or nametable byte
;   $070C        frame counter, running while the screen is on
; The state byte is written last, once the screen shows the verdict.

PPU_CTRL     = $2000
PPU_MASK     = $2001
PPU_STATUS   = $2002
PPU_SCROLL   = $2005
PPU_ADDRESS  = $2006
PPU_DATA     = $2007

RESULT           = $0700
RESULT_GAME      = RESULT + 7
RESULT_STATE     = RESULT + 8
RESULT_CHECK     = RESULT + 9
RESULT_CASE      = RESULT + 10
RESULT_SEEN      = RESULT + 11
RESULT_FRAMES    = RESULT + 12

CHECK_PRG        = 1
CHECK_CHR        = 2
CHECK_MIRRORING  = 3
CHECK_IRQ        = 4

MIRROR_HORIZONTAL = 0
MIRROR_VERTICAL   = 1
MIRROR_ONE_SCREEN = 2

IDENTITY_TABLE   = $FE00

  .RSSET $0000
TextPointer      .RS 2
RegisterPointer  .RS 2   ; mapper register that a serial write goes to
ProbeTarget      .RS 2   ; where the bank probe writes to switch
RestoreTarget    .RS 2   ; and where it writes to switch back
ProbeValue       .RS 1
RestoreValue     .RS 1
ProbeWrites      .RS 1   ; 0 no switch, 1 one latch write, 5 a serial register
BitCount         .RS 1
CaseNumber       .RS 1
Seen             .RS 1
Expected         .RS 1
Bank             .RS 1   ; the bank or unit that a check loop is at
IrqCount         .RS 1
IrqLatch         .RS 1
LoopCount        .RS 2
EarlyCount       .RS 2
MapperRegs       .RS 8   ; register values that a mapper check is about to set

ProbeMarkers     = $0200 ; 16 bytes: the marker seen in each 8 KB window
Expect           = $0210 ; 8 bytes: the bank per window, or the unit per 1 KB slot
BANK_PROBE       = $0300 ; RAM copy of BankProbe

Reset:
  SEI
  CLD
  LDX #$FF
  TXS
  LDA #$40
  STA $4017              ; no APU frame IRQ
  LDA #0
  STA PPU_CTRL
  STA PPU_MASK
  STA $4010              ; no DMC IRQ
  BIT PPU_STATUS
.FirstVblank:
  BIT PPU_STATUS
  BPL .FirstVblank
  TAX
.ClearRam:
  STA $0000,X
  STA $0100,X
  STA $0200,X
  STA $0300,X
  STA $0400,X
  STA $0500,X
  STA $0600,X
  STA $0700,X
  INX
  BNE .ClearRam
.SecondVblank:           ; the PPU takes writes from here on
  BIT PPU_STATUS
  BPL .SecondVblank
  LDX #6
.Signature:
  LDA Signature,X
  STA RESULT,X
  DEX
  BPL .Signature
  LDA #GAME_ID
  STA RESULT_GAME
  JSR CopyBankProbe
  JSR MapperInit
  LDA #0
  STA <CaseNumber
  JSR TestPrg
  LDA #0
  STA <CaseNumber
  JSR TestChr
  LDA #0
  STA <CaseNumber
  JSR TestMirroring

; Shows the screen and publishes the verdict. Reached from the end of the checks
; or from Fail, with whatever stack and banks the failing check left.
ShowResult:
  SEI
  LDX #$FF
  TXS
  JSR MapperHome
  JSR DrawScreen
  JSR ScreenOn
  .IF MAPPER = 4
  LDA RESULT_CHECK
  BNE .Checked
  STA <CaseNumber
  JSR TestIrq            ; needs rendering on
.Checked:
  .ENDIF
  JSR WaitNmi
  JSR ScreenOff
  JSR DrawResult
  JSR ScreenOn
  LDA #'P'
  LDX RESULT_CHECK
  BEQ .Publish
  LDA #'F'
.Publish:
  STA RESULT_STATE
.Idle:
  JMP .Idle

; Ends the checks: A = the failing check; CaseNumber and Seen tell the rest.
Fail:
  STA RESULT_CHECK
  LDA <CaseNumber
  STA RESULT_CASE
  LDA <Seen
  STA RESULT_SEEN
  JMP ShowResult

WaitNmi:
  LDA RESULT_FRAMES
.Wait:
  CMP RESULT_FRAMES
  BEQ .Wait
  RTS

Nmi:
  INC RESULT_FRAMES
  RTI

  .IF MAPPER != 4
Irq:
  RTI
  .ENDIF

Signature:
  .DB "ZUNBRIX"

  INCLUDE "screen.asm"
  INCLUDE "checks.asm"

  .IF MAPPER = 0
  INCLUDE "nrom.asm"
  .ENDIF
  .IF MAPPER = 1
  INCLUDE "mmc1.asm"
  .ENDIF
  .IF MAPPER = 2
  INCLUDE "uxrom.asm"
  .ENDIF
  .IF MAPPER = 3
  INCLUDE "cnrom.asm"
  .ENDIF
  .IF MAPPER = 4
  INCLUDE "mmc3.asm"
  .ENDIF
  .IF MAPPER = 7
  INCLUDE "axrom.asm"
  .ENDIF
  .IF MAPPER = 66
  INCLUDE "gxrom.asm"
  .ENDIF

; The font: CHR-RAM games copy it from here, CHR-ROM games carry it in unit 0.
  .IF CHR_UNITS = 0
Font:
  INCLUDE "font.asm"
  .ELSE
  .BANK PRG_BANKS
  .ORG $0000
  INCLUDE "font.asm"
  .ENDIF
