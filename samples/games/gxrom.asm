; GxROM (mapper 66): one latch selects the 32 KB PRG bank (bits 4-5) and the
; 8 KB CHR bank (bits 0-1); the header fixes the mirroring.

RESET_LATCH = 0
PRG_SWITCH_BANKS = PRG_BANKS / 4
PRG_SWITCH_SIZE = 4

MapperInit:
MapperHome:
  LDA #0
  JMP WriteLatch

PrgLatch:
  ASL A
  ASL A
  ASL A
  ASL A
  RTS

TestPrg:
  JMP CheckLatchPrgBanks

TestChr:
  JMP CheckLatchChrBanks

TestMirroring:
  LDA #MIRRORING
  JMP CheckMirroring

  INCLUDE "latch_prg.asm"
  INCLUDE "latch_chr.asm"
