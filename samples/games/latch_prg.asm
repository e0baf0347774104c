; PRG banks chosen by a latch, as on UxROM, AxROM and GxROM: every bank in
; turn, also by a number past the size, which must wrap. The mapper file gives
; PRG_SWITCH_BANKS (how many banks the latch chooses from), PRG_SWITCH_SIZE
; (8 KB windows per bank, from $8000 on) and PrgLatch (A = bank, returns the
; latch value). Windows past the switched ones must already stand in Expect.

CheckLatchPrgBanks:
  LDA #0
  STA <Bank
.Bank:
  LDA #0
  LDX #PRG_SWITCH_SIZE
.Times:
  CLC
  ADC <Bank
  DEX
  BNE .Times
  LDY #PRG_SWITCH_SIZE   ; the bank's first window is window 0: X is 0
  JSR ExpectRun
  LDA <Bank
  JSR PrgLatch
  JSR LatchProbe
  LDA <Bank
  ORA #PRG_SWITCH_BANKS
  JSR PrgLatch
  JSR LatchProbe
  INC <Bank
  LDA <Bank
  CMP #PRG_SWITCH_BANKS
  BNE .Bank
  JMP MapperHome
