; CHR banks chosen by the low bits of a latch, as on CNROM and GxROM: every
; 8 KB bank in turn, also by a number past the size, which must wrap. The
; other latch bits stay 0, so PRG bank 0, where this code runs, stays.

CHR_BANKS = CHR_UNITS / 8

CheckLatchChrBanks:
  LDA #0
  STA <Bank
.Bank:
  LDA <Bank
  ASL A
  ASL A
  ASL A
  LDX #0
  LDY #8
  JSR ExpectRun
  LDA <Bank
  JSR WriteLatch
  JSR CheckChrSlots
  LDA <Bank
  ORA #CHR_BANKS
  JSR WriteLatch
  JSR CheckChrSlots
  INC <Bank
  LDA <Bank
  CMP #CHR_BANKS
  BNE .Bank
  JMP MapperHome
