; Boards with one-screen mirroring: both pages exist and are apart, so a byte
; written on one page is not on the other. The mapper file provides
; SelectScreen: A = 0 for the lower page, 1 for the upper.

CheckScreenPages:
  LDA #0
  JSR SelectScreen
  LDA #$A1
  JSR MarkScreen
  LDA #1
  JSR SelectScreen
  LDA #$B2
  JSR MarkScreen
  LDA #0
  JSR SelectScreen
  LDA #$A1
  JSR ExpectScreenMark
  LDA #1
  JSR SelectScreen
  LDA #$B2
  JMP ExpectScreenMark

; Writes A to the first byte of the screen.
MarkScreen:
  BIT PPU_STATUS
  LDX #$20
  STX PPU_ADDRESS
  LDX #$00
  STX PPU_ADDRESS
  STA PPU_DATA
  RTS

; Fails the mirroring check unless the first byte of the screen is A.
ExpectScreenMark:
  INC <CaseNumber
  STA <Expected
  BIT PPU_STATUS
  LDA #$20
  STA PPU_ADDRESS
  LDA #$00
  STA PPU_ADDRESS
  LDA PPU_DATA
  LDA PPU_DATA
  CMP <Expected
  BNE .Wrong
  RTS
.Wrong:
  STA <Seen
  LDA #CHECK_MIRRORING
  JMP Fail
