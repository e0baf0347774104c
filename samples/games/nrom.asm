; NROM (mapper 0): 16 or 32 KB of PRG and 8 KB of CHR, nothing switches;
; the header fixes the mirroring.

RESET_LATCH = 0

MapperInit:
MapperHome:
  RTS

TestPrg:
  JMP CheckFixedPrg

TestChr:
  LDA #0
  LDX #0
  LDY #8
  JSR ExpectRun
  JMP CheckChrSlots

TestMirroring:
  LDA #MIRRORING
  JMP CheckMirroring
