; CNROM (mapper 3): fixed PRG of 16 or 32 KB; one latch selects the 8 KB CHR
; bank; the header fixes the mirroring.

RESET_LATCH = 0

MapperInit:
MapperHome:
  LDA #0
  JMP WriteLatch

TestPrg:
  JMP CheckFixedPrg

TestChr:
  JMP CheckLatchChrBanks

TestMirroring:
  LDA #MIRRORING
  JMP CheckMirroring

  INCLUDE "latch_chr.asm"
