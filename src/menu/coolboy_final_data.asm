;==============================================================================
; Starting a game on COOLBOY and MINDKIDS boards. The build has computed the
; outer registers; each record holds them ready:
;   flags, CHR 8 KB count, Reg0-Reg3 for the CHR copy, Reg0-Reg3 for the game
;==============================================================================

; Fills the game variables from the record of game Sel_Cur
GetGameConfig:
    LDA <Sel_Cur_L
    STA <QV_Word_L
    LDA <Sel_Cur_H
    STA <QV_Word_H
    LDA #GAME_DATA_INDEX & BANK_DATA_MASK
    LDX #HIGH(GAME_DATA_INDEX_ADDR)
    LDY #GAME_DATA_BANK & BANK_DATA_MASK
    JSR LocateRecord
    LDY #0
    LDA [QV_Data_L],Y
    STA <Game_Flags
    AND #$01                    ; mirroring is set before the copy
    EOR #$01
    STA MMC3_MIRRORING
    INY
    LDA [QV_Data_L],Y
    STA <Game_Chr_Size
    LDX #0
.Register:
    INY
    LDA [QV_Data_L],Y
    STA <Game_Reg_0_For_Chr,X
    INY
    INY
    INY
    INY
    LDA [QV_Data_L],Y
    STA <Game_Reg_0_For_Prg,X
    DEY
    DEY
    DEY
    DEY
    INX
    CPX #4
    BNE .Register
    RTS

; Entered by JMP from the frame; never returns
SelectGame:
    LDA #0
    STA PPU_CTRL                ; no NMI from here on
    STA PPU_MASK
    JSR NmiWait
    JSR PaletteClear
    JSR StopSound
    LDA #0
    TAX
.ClearRam:
    STA $0100,X
    STA $0200,X
    STA $0300,X
    STA $0400,X
    STA $0500,X
    STA $0600,X
    STA $0700,X
    INX
    BNE .ClearRam
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
    JSR GetGameConfig
    ; only now: this lands in the stack page that the calls above used
    LDX #0
.CopyClear:
    LDA ClearRamProc,X
    STA SELECT_CLEAR_ADDR,X
    INX
    CPX #SELECT_GAME_PROC_CLEAR_RAM_SIZE
    BNE .CopyClear
    JMP SELECT_ADDR

; Runs at SELECT_ADDR: relative branches only. The outer registers change
; what the whole program space shows.
SelectGameProc:
    LDX #0
.ChrRegister:
    LDA <Game_Reg_0_For_Chr,X
    STA GAME_REG_0,X
    INX
    CPX #4
    BNE .ChrRegister
    LDA #0
    STA <QV_Data_Tmp            ; source bank
    STA <QV_Data_Cnt            ; 8 KB done
.ChrBank:
    LDA #6
    STA MMC3_BANK_CTRL
    LDA <Game_Reg_3_For_Chr
    AND #%00001111
    CLC
    ADC <QV_Data_Tmp
    STA MMC3_BANK_DATA
    ; the whole pattern space onto the counted 8 KB of CHR RAM:
    ; R0-R5 = base + 0, 2, 4, 5, 6, 7
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
    ; NROM games with the odd half of a bank pair read it at $A000
    LDA #0
    STA <QV_Data_L
    LDA <Game_Reg_3_For_Chr
    AND #%00010001
    CMP #%00010001
    LDA #$80
    BCC .Source
    LDA #$A0
.Source:
    STA <QV_Data_H
    LDA <Game_Chr_Size
    BEQ .ChrDone
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
    LDX #0
.PrgRegister:
    LDA <Game_Reg_0_For_Prg,X
    STA GAME_REG_0,X
    INX
    CPX #4
    BNE .PrgRegister
    LDA #$80                    ; PRG RAM on
    STA MMC3_PRG_RAM_PROTECT
    JMP SELECT_CLEAR_ADDR
SelectGameProcEnd:
SELECT_GAME_PROC_SIZE = SelectGameProcEnd - SelectGameProc

; Runs at SELECT_CLEAR_ADDR, inside the stack page, which it leaves alone
ClearRamProc:
    LDX #0
    TXA
.Clear:
    STA <$00,X
    STA $0200,X
    STA $0300,X
    STA $0400,X
    STA $0500,X
    STA $0600,X
    STA $0700,X
    INX
    BNE .Clear
    JMP [$FFFC]                 ; the game's own reset vector
ClearRamProcEnd:
SELECT_GAME_PROC_CLEAR_RAM_SIZE = ClearRamProcEnd - ClearRamProc
