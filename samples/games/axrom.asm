; AxROM (mapper 7): one latch selects the 32 KB bank (bits 0-2) and the
; one-screen page (bit 4); 8 KB of CHR-RAM.

RESET_LATCH = 0
PRG_SWITCH_BANKS = PRG_BANKS / 4
PRG_SWITCH_SIZE = 4

MapperInit:
MapperHome:
  LDA #0
  JMP WriteLatch

PrgLatch:
  RTS

TestPrg:
  JMP CheckLatchPrgBanks

TestChr:
  JMP CheckChrRam

TestMirroring:
  LDA #MIRROR_ONE_SCREEN
  JSR CheckMirroring
  JSR CheckScreenPages
  JMP MapperHome

; A = page; bank 0, where this code runs, stays.
SelectScreen:
  ASL A
  ASL A
  ASL A
  ASL A
  JMP WriteLatch

  INCLUDE "latch_prg.asm"
  INCLUDE "one_screen.asm"
