; The sample game's screen: a few lines of text in nametable $2000, and the
; verdict in green or red. Text is ASCII in length-prefixed strings; the font's
; tile n draws character $20 + n.

PPU_CTRL_ON  = %10001000 ; NMI on, sprite patterns at $1000, background at $0000
PPU_MASK_ON  = %00001010 ; background only, left column too

RESULT_ROW_ADDRESS    = $2283 ; row 20, column 3
RESULT_ATTRIBUTES     = $23E8 ; attribute row 5: its top half is rows 20 and 21
TITLE_ATTRIBUTES      = $23C8 ; attribute row 1: its bottom half is rows 6 and 7
ATTRIBUTE_PASS        = %00000101 ; palette 1 on the top half
ATTRIBUTE_FAIL        = %00001010 ; palette 2 on the top half
ATTRIBUTE_TITLE       = %11110000 ; palette 3 on the bottom half

ScreenOff:
  LDA #0
  STA PPU_CTRL
  STA PPU_MASK
  RTS

; Turns rendering and the NMI on at the next vblank, scrolled to $2000.
ScreenOn:
  BIT PPU_STATUS
.Wait:
  BIT PPU_STATUS
  BPL .Wait
  LDA #0
  STA PPU_SCROLL
  STA PPU_SCROLL
  LDA #PPU_CTRL_ON
  STA PPU_CTRL
  LDA #PPU_MASK_ON
  STA PPU_MASK
  RTS

; Everything but the verdict. Rendering must be off.
DrawScreen:
  JSR ScreenOff
  .IF CHR_UNITS = 0
  JSR UploadFont
  .ENDIF
  BIT PPU_STATUS
  LDA #$3F
  STA PPU_ADDRESS
  LDA #$00
  STA PPU_ADDRESS
  LDX #0
.Palette:
  LDA Palette,X
  STA PPU_DATA
  INX
  CPX #32
  BNE .Palette
  LDA #$20               ; blank all four nametables, attributes too
  STA PPU_ADDRESS
  LDA #$00
  STA PPU_ADDRESS
  LDY #16
.Page:
  LDX #0
.Blank:
  STA PPU_DATA
  INX
  BNE .Blank
  DEY
  BNE .Page
  LDA #HIGH(TITLE_ATTRIBUTES)
  STA PPU_ADDRESS
  LDA #LOW(TITLE_ATTRIBUTES)
  STA PPU_ADDRESS
  LDA #ATTRIBUTE_TITLE
  LDX #8
.Title:
  STA PPU_DATA
  DEX
  BNE .Title
  LDX #0
.Line:
  LDA ScreenLines+1,X
  BEQ .Done
  STA PPU_ADDRESS
  LDA ScreenLines,X
  STA PPU_ADDRESS
  LDA ScreenLines+2,X
  STA <TextPointer
  LDA ScreenLines+3,X
  STA <TextPointer+1
  TXA
  PHA
  JSR PutText
  PLA
  CLC
  ADC #4
  TAX
  JMP .Line
.Done:
  RTS

; The verdict line: PASS, or FAIL with the check, its case and what it saw.
DrawResult:
  BIT PPU_STATUS
  LDA #HIGH(RESULT_ATTRIBUTES)
  STA PPU_ADDRESS
  LDA #LOW(RESULT_ATTRIBUTES)
  STA PPU_ADDRESS
  LDA #ATTRIBUTE_PASS
  LDX RESULT_CHECK
  BEQ .Colour
  LDA #ATTRIBUTE_FAIL
.Colour:
  LDX #8
.Attribute:
  STA PPU_DATA
  DEX
  BNE .Attribute
  LDA #HIGH(RESULT_ROW_ADDRESS)
  STA PPU_ADDRESS
  LDA #LOW(RESULT_ROW_ADDRESS)
  STA PPU_ADDRESS
  LDA RESULT_CHECK
  BNE .Failed
  LDX #LOW(PassText)
  LDY #HIGH(PassText)
  JMP PutTextAt
.Failed:
  LDX #LOW(FailText)
  LDY #HIGH(FailText)
  JSR PutTextAt
  LDA RESULT_CHECK
  ASL A
  TAX
  LDA CheckNames-2,X
  STA <TextPointer
  LDA CheckNames-1,X
  STA <TextPointer+1
  JSR PutText
  LDX #LOW(CaseText)
  LDY #HIGH(CaseText)
  JSR PutTextAt
  LDA RESULT_CASE
  JSR PutHex
  LDX #LOW(SawText)
  LDY #HIGH(SawText)
  JSR PutTextAt
  LDA RESULT_SEEN
  JMP PutHex

; Writes the text whose address is in X (low) and Y (high) at the PPU address.
PutTextAt:
  STX <TextPointer
  STY <TextPointer+1
; Writes the text at TextPointer at the PPU address.
PutText:
  LDY #0
  LDA [TextPointer],Y
  TAX
  BEQ .Done
.Char:
  INY
  LDA [TextPointer],Y
  SEC
  SBC #' '
  STA PPU_DATA
  DEX
  BNE .Char
.Done:
  RTS

; Writes A as two hexadecimal digits.
PutHex:
  PHA
  LSR A
  LSR A
  LSR A
  LSR A
  JSR PutDigit
  PLA
  AND #$0F
PutDigit:
  CMP #10
  BCC .Number
  ADC #'A' - '0' - 10 - 1 ; carry is set here
.Number:
  ADC #'0' - ' '
  STA PPU_DATA
  RTS

  .IF CHR_UNITS = 0
; Copies the font to the first kilobyte of CHR-RAM.
UploadFont:
  BIT PPU_STATUS
  LDA #0
  STA PPU_ADDRESS
  STA PPU_ADDRESS
  LDA #LOW(Font)
  STA <TextPointer
  LDA #HIGH(Font)
  STA <TextPointer+1
  LDX #4
  LDY #0
.Byte:
  LDA [TextPointer],Y
  STA PPU_DATA
  INY
  BNE .Byte
  INC <TextPointer+1
  DEX
  BNE .Byte
  RTS
  .ENDIF

Palette:
  .DB $0F,$30,$10,$00     ; text: white
  .DB $0F,$2A,$1A,$0A     ; PASS: green
  .DB $0F,$16,$06,$26     ; FAIL: red
  .DB $0F,$28,$18,$08     ; title: yellow
  .DB $0F,$0F,$0F,$0F, $0F,$0F,$0F,$0F, $0F,$0F,$0F,$0F, $0F,$0F,$0F,$0F

; PPU address and text of each line, ended by a zero address.
ScreenLines:
  .DW $2063, HeaderText
  .DW $20C3, GameTitle
  .DW $2123, GameInfo
  .DW $2163, GameMirroring
  .DW $21A3, ChecksText
  .DW 0

HeaderText   .STR "ZUNBRIX SAMPLE GAME"
  .IF MAPPER = 4
ChecksText   .STR "CHECKS PRG CHR MIRRORING IRQ"
  .ELSE
ChecksText   .STR "CHECKS PRG CHR MIRRORING"
  .ENDIF
PassText     .STR "PASS"
FailText     .STR "FAIL "
CaseText     .STR " CASE "
SawText      .STR " SAW "
PrgName      .STR "PRG"
ChrName      .STR "CHR"
MirroringName .STR "MIRRORING"
IrqName      .STR "IRQ"
CheckNames:
  .DW PrgName, ChrName, MirroringName, IrqName
