;==============================================================================
; Starting a game on COOLGIRL boards, with the registers computed here from
; the game's place in the flash and its mapper. Each record holds:
;   PRG offset (word, 8 KB units), PRG size (16 KB units),
;   CHR offset (word, 8 KB units), CHR size (8 KB units), flags, mapper
;
; Register 0, 1: PRG base in 16 KB units, high and low byte
; Register 2:    A M M M M M M M  A CHR mask bit 5, M $80 - PRG size
; Register 3:    B B B C C C C C  BBB PRG banking mode
; Register 4:    D D D E E E E E  DDD CHR banking mode, E $40 - CHR size
; Register 5:    C D D E E E W W
; Register 6:    F F F M M M M M  FFF mapper flags, M mapper code bits 4-0
; Register 7:    L M T R R S N O  L lock, M mapper code bit 5, T four-screen,
;                                 RR mirroring, N CHR RAM writable, O WRAM on
;==============================================================================

; Fills the game variables from the record of game Sel_Cur
GetGameConfig:
    LDA <Sel_Cur_L
    STA <QV_Word_L
    LDA <Sel_Cur_H
    STA <QV_Word_H
    LDA #GAME_DATA_INDEX & BANK_DATA_MASK
    LDX #HIGH(GAME_DATA_INDEX_ADDR)
    LDY #GAME_DATA_BANK
    JSR LocateRecord
    LDX #0
    LDY #0
.Field:
    LDA [QV_Data_L],Y
    STA <Game_Prg_Offset_L,X
    INX
    INY
    CPY #8
    BNE .Field
    RTS

; Entered by JMP from the frame; never returns
SelectGame:
    JSR GetGameConfig
    LDA #0
    STA PPU_CTRL                ; no NMI from here on
    STA PPU_MASK
    JSR NmiWait
    JSR PaletteClear
    JSR StopSound
    LDX #0
.CopyProc:
    LDA SelectGameProc,X
    STA SELECT_ADDR,X
    INX
    CPX #SELECT_GAME_PROC_SIZE
    BNE .CopyProc
    LDA #0
    LDX #15
.ClearReg:
    STA <Game_Reg_0_For_Chr,X
    DEX
    BPL .ClearReg
    JSR SetGameMapperConfig
    JSR SetGameTempRegForChr
    JSR SetGameTempRegForPrg
    LDA <Game_Flags             ; mirroring, bit 3 set for horizontal
    AND #$01
    EOR #$01
    ASL A
    ASL A
    ASL A
    ORA <Game_Reg_7_For_Prg
    STA <Game_Reg_7_For_Prg
    LDA <Game_Flags             ; four-screen
    AND #$04
    ASL A
    ASL A
    ASL A
    ORA <Game_Reg_7_For_Prg
    STA <Game_Reg_7_For_Prg
    JSR SetChrRamWrite
    JSR SetFDSPrgBank42
    LDA <Game_Reg_7_For_Prg     ; lock, WRAM on
    ORA #%10000001
    STA <Game_Reg_7_For_Prg
    JMP SELECT_ADDR

; The board's mapper row of Game_Mapper, or that of mapper 4
SetGameMapperConfig:
    LDY #0
.Row:
    LDA CoolGirlMapperConfigIndex,Y
    CMP #$FF
    BEQ .Default
    CMP <Game_Mapper
    BEQ .Found
    INY
    INY
    INY
    BNE .Row
.Default:
    LDY #CoolGirlMapperConfigDefault - CoolGirlMapperConfigIndex
.Found:
    LDA CoolGirlMapperConfigIndex+1,Y
    STA <QV_Data_L
    LDA CoolGirlMapperConfigIndex+2,Y
    STA <QV_Data_H
    LDY #3
.Byte:
    LDA [QV_Data_L],Y
    STA Game_Mapper_Code,Y
    DEY
    BPL .Byte
    RTS

; Base for the CHR copy; CHR RAM writable meanwhile
SetGameTempRegForChr:
    LDA <Game_Chr_Offset_H
    LSR A
    STA <Game_Reg_0_For_Chr
    LDA <Game_Chr_Offset_L
    ROR A
    STA <Game_Reg_1_For_Chr
    LDA #%00000010
    STA <Game_Reg_7_For_Chr
    RTS

SetGameTempRegForPrg:
    LDA <Game_Prg_Offset_H
    LSR A
    STA <Game_Reg_0_For_Prg
    LDA <Game_Prg_Offset_L
    ROR A
    STA <Game_Reg_1_For_Prg
    LDA #$80
    SEC
    SBC <Game_Prg_Size
    STA <Game_Reg_2_For_Prg
    LDA #$40
    SEC
    SBC <Game_Chr_Size
    STA <QV_Data_Tmp
    AND #$20                    ; CHR mask bit 5
    ASL A
    ASL A
    ORA <Game_Reg_2_For_Prg
    STA <Game_Reg_2_For_Prg
    LDA <QV_Data_Tmp
    AND #$1F
    STA <Game_Reg_4_For_Prg
    LDA <Game_Mapper_Code
    AND #%00011111
    STA <Game_Reg_6_For_Prg
    LDA <Game_Mapper_Code
    AND #%00100000
    ASL A
    STA <Game_Reg_7_For_Prg
    LDA <Game_Prg_Banking_Mode
    JSR ModeToTopBits
    STA <Game_Reg_3_For_Prg
    LDA <Game_Chr_Banking_Mode
    JSR ModeToTopBits
    ORA <Game_Reg_4_For_Prg
    STA <Game_Reg_4_For_Prg
    LDA <Game_Mapper_Flag
    JSR ModeToTopBits
    ORA <Game_Reg_6_For_Prg
    STA <Game_Reg_6_For_Prg
    RTS

; A = three bits, moved to bits 7-5
ModeToTopBits:
    ROR A
    ROR A
    ROR A
    ROR A
    AND #%11100000
    RTS

; A game without CHR data writes its own CHR RAM; mapper 74 does so as well
SetChrRamWrite:
    LDA <Game_Chr_Size
    BEQ .Writable
    LDA <Game_Mapper
    CMP #74
    BEQ .Writable
    LDA <Game_Reg_7_For_Prg
    AND #%11111101
    STA <Game_Reg_7_For_Prg
    RTS
.Writable:
    LDA <Game_Reg_7_For_Prg
    ORA #%00000010
    STA <Game_Reg_7_For_Prg
    RTS

SetFDSPrgBank42:
    LDA <Game_Mapper
    CMP #42
    BNE .Done
    LDA <Game_Reg_5_For_Prg
    ORA #%01111100
    STA <Game_Reg_5_For_Prg
.Done:
    RTS

; Runs at SELECT_ADDR: relative branches only
SelectGameProc:
    LDX #0
.ChrRegister:
    LDA <Game_Reg_0_For_Chr,X
    STA GAME_REG_0,X
    INX
    CPX #8
    BNE .ChrRegister
    LDA #0
    STA <QV_Data_Tmp            ; source bank
    STA <QV_Data_Cnt            ; 8 KB done
.ChrBank:
    ; the base holds 16 KB units: an odd 8 KB offset starts in bank 1
    LDA #6
    STA MMC3_BANK_CTRL
    LDA <Game_Chr_Offset_L
    AND #1
    CLC
    ADC <QV_Data_Tmp
    STA MMC3_BANK_DATA
    ; R0-R5 = base + 0, 2, 4, 5, 6, 7 on the counted 8 KB of CHR RAM
    LDA <QV_Data_Cnt
    ASL A
    ASL A
    ASL A
    STA <QV_Word_L
    LDX #5
.ChrWindow:
    STX MMC3_BANK_CTRL
    TXA
    CPX #2
    BCC .TwoK
    ADC #1                      ; carry set: X + 2
    BNE .Window
.TwoK:
    ASL A
.Window:
    CLC
    ADC <QV_Word_L
    STA MMC3_BANK_DATA
    DEX
    BPL .ChrWindow
    LDA <Game_Chr_Size
    BEQ .ChrDone
    LDA #$00
    STA <QV_Data_L
    LDA #$80
    STA <QV_Data_H
    LDA PPU_STATUS
    LDA #0
    STA PPU_ADDRESS
    STA PPU_ADDRESS
    LDX #$20
    TAY
.ChrByte:
    LDA [QV_Data_L],Y
    STA PPU_DATA
    INY
    BNE .ChrByte
    INC <QV_Data_H
    DEX
    BNE .ChrByte
    INC <QV_Data_Tmp
    INC <QV_Data_Cnt
    LDA <QV_Data_Cnt
    CMP <Game_Chr_Size
    BCC .ChrBank
.ChrDone:
    LDA #6
    STA MMC3_BANK_CTRL
    LDA #0
    STA MMC3_BANK_DATA
    LDA #7
    STA MMC3_BANK_CTRL
    LDA #1
    STA MMC3_BANK_DATA
    LDX #0
.PrgRegister:
    LDA <Game_Reg_0_For_Prg,X
    STA GAME_REG_0,X
    INX
    CPX #8
    BNE .PrgRegister
    JMP [$FFFC]                 ; the game's own reset vector
SelectGameProcEnd:
SELECT_GAME_PROC_SIZE = SelectGameProcEnd - SelectGameProc

; Mapper number, address of its row; the list ends with $FF
CoolGirlMapperConfigIndex:
    .DB 000, LOW(Mapper_Config_000), HIGH(Mapper_Config_000)
    .DB 001, LOW(Mapper_Config_001), HIGH(Mapper_Config_001)
    .DB 002, LOW(Mapper_Config_002), HIGH(Mapper_Config_002)
    .DB 003, LOW(Mapper_Config_003), HIGH(Mapper_Config_003)
CoolGirlMapperConfigDefault:
    .DB 004, LOW(Mapper_Config_004), HIGH(Mapper_Config_004)
    .DB 005, LOW(Mapper_Config_005), HIGH(Mapper_Config_005)
    .DB 007, LOW(Mapper_Config_007), HIGH(Mapper_Config_007)
    .DB 009, LOW(Mapper_Config_009), HIGH(Mapper_Config_009)
    .DB 010, LOW(Mapper_Config_010), HIGH(Mapper_Config_010)
    .DB 011, LOW(Mapper_Config_011), HIGH(Mapper_Config_011)
    .DB 018, LOW(Mapper_Config_018), HIGH(Mapper_Config_018)
    .DB 021, LOW(Mapper_Config_021), HIGH(Mapper_Config_021)
    .DB 022, LOW(Mapper_Config_022), HIGH(Mapper_Config_022)
    .DB 023, LOW(Mapper_Config_023), HIGH(Mapper_Config_023)
    .DB 025, LOW(Mapper_Config_025), HIGH(Mapper_Config_025)
    .DB 030, LOW(Mapper_Config_030), HIGH(Mapper_Config_030)
    .DB 032, LOW(Mapper_Config_032), HIGH(Mapper_Config_032)
    .DB 033, LOW(Mapper_Config_033), HIGH(Mapper_Config_033)
    .DB 034, LOW(Mapper_Config_034), HIGH(Mapper_Config_034)
    .DB 036, LOW(Mapper_Config_036), HIGH(Mapper_Config_036)
    .DB 038, LOW(Mapper_Config_038), HIGH(Mapper_Config_038)
    .DB 042, LOW(Mapper_Config_042), HIGH(Mapper_Config_042)
    .DB 048, LOW(Mapper_Config_048), HIGH(Mapper_Config_048)
    .DB 065, LOW(Mapper_Config_065), HIGH(Mapper_Config_065)
    .DB 066, LOW(Mapper_Config_066), HIGH(Mapper_Config_066)
    .DB 067, LOW(Mapper_Config_067), HIGH(Mapper_Config_067)
    .DB 069, LOW(Mapper_Config_069), HIGH(Mapper_Config_069)
    .DB 070, LOW(Mapper_Config_070), HIGH(Mapper_Config_070)
    .DB 071, LOW(Mapper_Config_071), HIGH(Mapper_Config_071)
    .DB 073, LOW(Mapper_Config_073), HIGH(Mapper_Config_073)
    .DB 075, LOW(Mapper_Config_075), HIGH(Mapper_Config_075)
    .DB 078, LOW(Mapper_Config_078), HIGH(Mapper_Config_078)
    .DB 079, LOW(Mapper_Config_079), HIGH(Mapper_Config_079)
    .DB 083, LOW(Mapper_Config_083), HIGH(Mapper_Config_083)
    .DB 087, LOW(Mapper_Config_087), HIGH(Mapper_Config_087)
    .DB 089, LOW(Mapper_Config_089), HIGH(Mapper_Config_089)
    .DB 090, LOW(Mapper_Config_090), HIGH(Mapper_Config_090)
    .DB 093, LOW(Mapper_Config_093), HIGH(Mapper_Config_093)
    .DB 097, LOW(Mapper_Config_097), HIGH(Mapper_Config_097)
    .DB 112, LOW(Mapper_Config_112), HIGH(Mapper_Config_112)
    .DB 118, LOW(Mapper_Config_118), HIGH(Mapper_Config_118)
    .DB 133, LOW(Mapper_Config_133), HIGH(Mapper_Config_133)
    .DB 146, LOW(Mapper_Config_146), HIGH(Mapper_Config_146)
    .DB 152, LOW(Mapper_Config_152), HIGH(Mapper_Config_152)
    .DB 163, LOW(Mapper_Config_163), HIGH(Mapper_Config_163)
    .DB 184, LOW(Mapper_Config_184), HIGH(Mapper_Config_184)
    .DB 189, LOW(Mapper_Config_189), HIGH(Mapper_Config_189)
    .DB 206, LOW(Mapper_Config_206), HIGH(Mapper_Config_206)
    .DB 228, LOW(Mapper_Config_228), HIGH(Mapper_Config_228)
    .DB 241, LOW(Mapper_Config_241), HIGH(Mapper_Config_241)
    .DB $FF

; Board mapper code, flags, PRG banking mode, CHR banking mode
Mapper_Config_000 .DB %000000,%000,%000,%000
Mapper_Config_001 .DB %010000,%000,%000,%000
Mapper_Config_002 .DB %000001,%000,%000,%000
Mapper_Config_003 .DB %000010,%000,%000,%000
Mapper_Config_004 .DB %010100,%000,%100,%010
Mapper_Config_005 .DB %001111,%000,%100,%111
Mapper_Config_007 .DB %001000,%000,%111,%000
Mapper_Config_009 .DB %010001,%000,%100,%101
Mapper_Config_010 .DB %010001,%001,%000,%101
Mapper_Config_011 .DB %001010,%000,%111,%000
Mapper_Config_018 .DB %000111,%000,%100,%111
Mapper_Config_021 .DB %011000,%000,%100,%111
Mapper_Config_022 .DB %011000,%011,%100,%111
Mapper_Config_023 .DB %011000,%100,%100,%111
Mapper_Config_025 .DB %011000,%101,%100,%111
Mapper_Config_030 .DB %000001,%000,%000,%000
Mapper_Config_032 .DB %011010,%000,%100,%111
Mapper_Config_033 .DB %010110,%000,%100,%010
Mapper_Config_034 .DB %001000,%001,%111,%000
Mapper_Config_036 .DB %011101,%000,%111,%000
Mapper_Config_038 .DB %100000,%000,%111,%000
Mapper_Config_042 .DB %010111,%000,%111,%000
Mapper_Config_048 .DB %010110,%001,%100,%010
Mapper_Config_065 .DB %001110,%000,%100,%111
Mapper_Config_066 .DB %001011,%000,%111,%000
Mapper_Config_067 .DB %100100,%000,%000,%110
Mapper_Config_069 .DB %011001,%000,%100,%111
Mapper_Config_070 .DB %010010,%000,%000,%000
Mapper_Config_071 .DB %000001,%001,%000,%000
Mapper_Config_073 .DB %010011,%000,%000,%000
Mapper_Config_075 .DB %100010,%000,%100,%100
Mapper_Config_078 .DB %000011,%000,%000,%000
Mapper_Config_079 .DB %011011,%000,%111,%000
Mapper_Config_083 .DB %100011,%000,%100,%111
Mapper_Config_087 .DB %001100,%000,%000,%000
Mapper_Config_089 .DB %100101,%000,%000,%000
Mapper_Config_090 .DB %001101,%000,%100,%111
Mapper_Config_093 .DB %000101,%000,%000,%000
Mapper_Config_097 .DB %000100,%000,%001,%000    ; does not run on the board
Mapper_Config_112 .DB %010101,%000,%100,%010
Mapper_Config_118 .DB %010100,%001,%100,%010
Mapper_Config_133 .DB %011100,%000,%111,%000
Mapper_Config_146 .DB %011011,%000,%111,%000
Mapper_Config_152 .DB %010010,%000,%000,%000
Mapper_Config_163 .DB %000110,%000,%111,%000
Mapper_Config_184 .DB %011111,%000,%000,%100
Mapper_Config_189 .DB %010100,%010,%111,%010
Mapper_Config_206 .DB %010100,%100,%100,%010
Mapper_Config_228 .DB %001001,%000,%111,%000
Mapper_Config_241 .DB %001000,%001,%111,%000
