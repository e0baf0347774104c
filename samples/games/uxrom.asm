; UxROM (mapper 2): one latch selects the 16 KB bank at $8000, the last bank
; stays at $C000; 8 KB of CHR-RAM; the header fixes the mirroring.

RESET_LATCH = 0
PRG_SWITCH_BANKS = PRG_BANKS / 2
PRG_SWITCH_SIZE = 2

MapperInit:
MapperHome:
  LDA #0
  JMP WriteLatch

PrgLatch:
  RTS

TestPrg:
  LDA #PRG_BANKS - 2
  LDX #2
  LDY #2
  JSR ExpectRun
  JMP CheckLatchPrgBanks

TestChr:
  JMP CheckChrRam

TestMirroring:
  LDA #MIRRORING
  JMP CheckMirroring

  INCLUDE "latch_prg.asm"
