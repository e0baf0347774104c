;==============================================================================
; Starting a game on COOLBOY and MINDKIDS boards, with the outer registers
; computed here from the game's place in the flash. Each record holds:
;   PRG offset (word, 8 KB units), PRG size (16 KB units),
;   CHR offset (word, 8 KB units), CHR size (8 KB units), flags, mapper
;
; Register 0: A B C C D E E E   A CHR size mask (1: 128 KB), B A17 mask,
;                               CC A24-A23, EEE A19-A17
; Register 1: G H I J K K L x   G A18 mask, H A19 mask, I A20 mask, J A20,
;                               KK A22-A21
; Register 3: N P Z P Q Q R x   N lock, bit 4 NROM mode, QQR A16-A14
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
    LDX #GAME_SELECT_TEMP_SIZE - 1
.ClearTemp:
    STA <Game_Temp_Reg_Addr,X
    DEX
    BPL .ClearTemp

    ; PRG: A16-A14 in register 3, the rest spread over registers 0 and 1
    LDA <Game_Prg_Offset_L
    AND #%00001110
    STA <Prg_Reg_3
    LDA <Game_Prg_Offset_L
    STA <QV_Word_L
    LDA <Game_Prg_Offset_H
    STA <QV_Word_H
    LDX #Prg_Reg_0 - Chr_Reg_0
    JSR SetOuterAddress
    LDA <Game_Prg_Size
    LSR A
    LSR A
    LSR A
    LSR A
    JSR SetSizeMask
    LDA <Game_Chr_Size          ; A: 128 KB CHR mask unless 256 KB
    AND #%00100000
    EOR #%00100000
    ASL A
    ASL A
    ORA <Prg_Reg_0
    STA <Prg_Reg_0

    ; CHR: the same, with A13 kept for NROM games
    LDA <Game_Chr_Offset_L
    AND #%00001111
    STA <Chr_Reg_3
    LDA <Game_Chr_Offset_L
    STA <QV_Word_L
    LDA <Game_Chr_Offset_H
    STA <QV_Word_H
    LDX #0
    JSR SetOuterAddress
    LDA <Game_Chr_Size
    STA <Chr_Size
    LSR A
    LSR A
    LSR A
    LSR A
    LSR A
    JSR SetSizeMask

    LDA <Game_Flags
    AND #$01
    EOR #$01
    STA MMC3_MIRRORING
    LDA <Game_Mapper
    BNE .Registers
    JSR SetNromData
.Registers:
    LDA #0
    STA PPU_CTRL
    STA PPU_MASK
    STA MMC3_PRG_RAM_PROTECT
    JMP SELECT_ADDR

; QV_Word = offset in 8 KB units; X = 0 for the CHR registers, 4 for PRG
SetOuterAddress:
    LSR <QV_Word_H              ; 16 KB units
    ROR <QV_Word_L
    LDA <QV_Word_L              ; EEE: A19-A17
    LSR A
    LSR A
    LSR A
    AND #%00000111
    STA <QV_Data_Tmp
    LDA <QV_Word_H              ; CC: A24-A23
    AND #%00000110
    ASL A
    ASL A
    ASL A
    ORA <QV_Data_Tmp
    ORA <Chr_Reg_0,X
    STA <Chr_Reg_0,X
    LDA <QV_Word_L              ; J: A20
    AND #$40
    LSR A
    LSR A
    STA <QV_Data_Tmp
    LDA <QV_Word_L              ; KK: A22-A21
    AND #$80
    LSR A
    LSR A
    LSR A
    LSR A
    LSR A
    ORA <QV_Data_Tmp
    STA <QV_Data_Tmp
    LDA <QV_Word_H
    AND #$01
    ASL A
    ASL A
    ASL A
    ORA <QV_Data_Tmp
    ORA <Chr_Reg_1,X
    STA <Chr_Reg_1,X
    RTS

; A = size in 128 KB steps; X as above. Mask bit 0 goes to B of register 0,
; bits 1-3 to G, H, I of register 1.
SetSizeMask:
    TAY
    LDA ROM_Size_Mask,Y
    STA <QV_Data_Tmp
    AND #$01
    BEQ .NoB
    LDA #$40
    ORA <Chr_Reg_0,X
    STA <Chr_Reg_0,X
.NoB:
    ASL <QV_Data_Tmp            ; I H G B 0 0 0 0
    ASL <QV_Data_Tmp
    ASL <QV_Data_Tmp
    ASL <QV_Data_Tmp
    LDA #0
    STA <QV_Data_Cnt
    LDY #3
.Bit:
    ASL <QV_Data_Tmp            ; I, then H, then G
    ROR <QV_Data_Cnt
    DEY
    BNE .Bit
    LDA <QV_Data_Cnt            ; G H I 0 0 0 0 0
    ORA <Chr_Reg_1,X
    STA <Chr_Reg_1,X
    RTS

; NROM games: a fixed 16 or 32 KB window in NROM mode
SetNromData:
    LDA <Game_Prg_Size
    AND #$FE
    ORA <Prg_Reg_1
    STA <Prg_Reg_1
    LDX #Prg_Reg_0 - Chr_Reg_0
.Both:
    LDA <Chr_Reg_0,X
    ORA #%11000000
    STA <Chr_Reg_0,X
    LDA <Chr_Reg_1,X
    AND #%00011111
    ORA #%10000000
    STA <Chr_Reg_1,X
    LDA <Chr_Reg_3,X
    ORA #%00010000
    STA <Chr_Reg_3,X
    TXA
    SEC
    SBC #Prg_Reg_0 - Chr_Reg_0
    TAX
    BCS .Both
    RTS

; Runs at SELECT_ADDR: relative branches only
SelectGameProc:
    LDX #0
.ChrRegister:
    LDA <Chr_Reg_0,X
    STA GAME_REG_0,X
    INX
    CPX #4
    BNE .ChrRegister
    LDA #0
    STA <QV_Data_Tmp            ; source bank
    STA <QV_Data_Cnt            ; 8 KB done
    LDA <Chr_Size
    BEQ .ChrDone
.ChrBank:
    LDA #6
    STA MMC3_BANK_CTRL
    LDA <Chr_Reg_3
    AND #%00001111
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
    LDA #0                      ; NROM: the odd 8 KB is read at $A000
    STA <QV_Data_L
    LDA <Chr_Reg_3
    AND #%00010001
    CMP #%00010001
    LDA #$80
    BCC .Source
    LDA #$A0
.Source:
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
    DEC <Chr_Size
    BNE .ChrBank
.ChrDone:
    LDX #0
.PrgRegister:
    LDA <Prg_Reg_0,X
    CPX #3
    BNE .Put
    ORA #$80                    ; the last write locks the registers
.Put:
    STA GAME_REG_0,X
    INX
    CPX #4
    BNE .PrgRegister
    LDA #$80                    ; PRG RAM on
    STA MMC3_PRG_RAM_PROTECT
    LDA #6
    STA MMC3_BANK_CTRL
    LDA #0
    STA MMC3_BANK_DATA
    LDA #7
    STA MMC3_BANK_CTRL
    LDA #1
    STA MMC3_BANK_DATA
    LDX #5                      ; R0-R5 = 0, 2, 4, 5, 6, 7
.MapChr:
    STX MMC3_BANK_CTRL
    TXA
    CPX #2
    BCC .TwoKMap
    ADC #1
    BNE .Mapped
.TwoKMap:
    ASL A
.Mapped:
    STA MMC3_BANK_DATA
    DEX
    BPL .MapChr
    JMP [$FFFC]                 ; the game's own reset vector
SelectGameProcEnd:
SELECT_GAME_PROC_SIZE = SelectGameProcEnd - SelectGameProc
