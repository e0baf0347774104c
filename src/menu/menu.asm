;==============================================================================
; Multicart menu: lists the games of a flash cartridge and starts the chosen
; one. Runs on the MMC3-compatible register set of COOLBOY, MINDKIDS and
; COOLGIRL boards. After start-up all the work happens in the NMI handler.
;
; The build writes the files of build/ beside this source before assembling.
;==============================================================================

    INCLUDE "build/game_config.asm"

NMI_MODE = 1                    ; 1: the frame runs in the NMI, 0: polled

    .INESPRG MENU_PRG_SIZE
    .INESCHR MENU_CHR_SIZE
    .INESMAP 4
    .INESMIR 1

MULTICATR_TYPE_COOLBOY  = 0
MULTICATR_TYPE_MINDKIDS = 1
MULTICATR_TYPE_COOLGIRL = 2

; The image holds MENU_PRG_SIZE * 2 banks of 8 KB. Bank numbers below count
; from the top of a 512 KB space; the mask folds them into the image, as the
; board's size mask does in hardware.
BANK_DATA_MASK = MENU_PRG_SIZE * 2 - 1

; Outer bank registers of the board
    .IF BOARD_TYPE = MULTICATR_TYPE_COOLBOY
GAME_REG_0 = $6000
    .ELSE
GAME_REG_0 = $5000
    .ENDIF
GAME_REG_1 = GAME_REG_0 + 1
GAME_REG_2 = GAME_REG_0 + 2
GAME_REG_3 = GAME_REG_0 + 3
GAME_REG_4 = GAME_REG_0 + 4
GAME_REG_5 = GAME_REG_0 + 5
GAME_REG_6 = GAME_REG_0 + 6
GAME_REG_7 = GAME_REG_0 + 7

;------------------------------------------------------------------------------
; Music sets. 0 is silent and 1 plays plain APU effects; 2 to 5 are game
; sound drivers that come as banks of their own, entered through
; Sound_Init_Src (A = track) and Sound_Play_Src (once a frame).
;------------------------------------------------------------------------------
    .IF MENU_MUSIC = 2
Sound_Init_Src = $C400
Sound_Play_Src = $8000
SOUNG_BGM   = 15
SOUNG_ITEM  = 38
SOUNG_PAGE  = 37
SOUNG_ENTER = 36
    .BANK SOUND_DATA_BANK_0 & BANK_DATA_MASK
    INCBIN "menu_data/music_data_0.bank"
    .BANK SOUND_DATA_BANK_1 & BANK_DATA_MASK
    INCBIN "menu_data/music_data_1.bank"
    .BANK SOUND_DATA_BANK_C000 & BANK_DATA_MASK
    INCBIN "menu_data/music_data_2.bank"
    .ENDIF

    .IF MENU_MUSIC = 3
Sound_Init_Src = $C400
Sound_Play_Src = $8001
SOUNG_BGM   = 1
SOUNG_ITEM  = 16
SOUNG_PAGE  = 14
SOUNG_ENTER = 19
    .BANK SOUND_DATA_BANK_0 & BANK_DATA_MASK
    INCBIN "menu_data/music_data_3.bank"
    .BANK SOUND_DATA_BANK_1 & BANK_DATA_MASK
    INCBIN "menu_data/music_data_4.bank"
    .BANK SOUND_DATA_BANK_C000 & BANK_DATA_MASK
    INCBIN "menu_data/music_data_5.bank"
    .ENDIF

    .IF MENU_MUSIC = 4
Sound_Init_Src = $C450
Sound_Play_Src = $80d5
SOUNG_BGM   = 1
SOUNG_ITEM  = 21
SOUNG_PAGE  = 26
SOUNG_ENTER = 39
    .BANK SOUND_DATA_BANK_0 & BANK_DATA_MASK
    INCBIN "menu_data/music_data_6.bank"
    .BANK SOUND_DATA_BANK_1 & BANK_DATA_MASK
    INCBIN "menu_data/music_data_7.bank"
    .BANK SOUND_DATA_BANK_C000 & BANK_DATA_MASK
    INCBIN "menu_data/music_data_8.bank"
    .ENDIF

    .IF MENU_MUSIC = 5
Sound_Init_Src = $DFF0
Sound_Play_Src = $813C
SOUNG_BGM   = 7
SOUNG_ITEM  = 17
SOUNG_PAGE  = 19
SOUNG_ENTER = 36
    .BANK SOUND_DATA_BANK_0 & BANK_DATA_MASK
    INCBIN "menu_data/music_data_9.bank"
    .BANK SOUND_DATA_BANK_1 & BANK_DATA_MASK
    INCBIN "menu_data/music_data_A.bank"
    .BANK SOUND_DATA_BANK_2 & BANK_DATA_MASK
    INCBIN "menu_data/music_data_B.bank"
    .BANK SOUND_DATA_BANK_C000 & BANK_DATA_MASK
    INCBIN "menu_data/music_data_C.bank"
    .ENDIF

;------------------------------------------------------------------------------
; Where things lie in the image
;------------------------------------------------------------------------------
    .IF MENU_PRG_SIZE = 8
SOUND_DATA_BANK_0    = $30
SOUND_DATA_BANK_1    = $31
SOUND_DATA_BANK_2    = $32
GAME_DATA_BANK       = $33
GAME_NAME_BANK       = $37
    .ENDIF
    .IF MENU_PRG_SIZE = 16
SOUND_DATA_BANK_0    = $20
SOUND_DATA_BANK_1    = $21
SOUND_DATA_BANK_2    = $22
GAME_DATA_BANK       = $23
GAME_NAME_BANK       = $2B
    .ENDIF
    .IF MENU_PRG_SIZE = 32
SOUND_DATA_BANK_0    = $00
SOUND_DATA_BANK_1    = $01
SOUND_DATA_BANK_2    = $02
GAME_DATA_BANK       = $03
GAME_NAME_BANK       = $18
    .ENDIF
SOUND_DATA_BANK_C000 = $3E
CHR_DATA_BANK        = $3C
PROGRAM_BANK         = $3D
GAME_DATA_INDEX      = $3F
GAME_NAME_INDEX      = $3F
NAME_TABLE_DATA_BANK = $3F
SPRITE_TILE_BANK     = $3F
RESET_BANK           = $3F

GAME_DATA_ADDR       = $A000
GAME_NAME_ADDR       = $A000
CHR_DATA_ADDR        = $A000
PROGRAM_ADDR         = $8800
GAME_DATA_INDEX_ADDR = $A000
GAME_NAME_INDEX_ADDR = $A800
NAME_TABLE_DATA_ADDR = $B000
SPRITE_TILE_ADDR     = $B400
RESET_ADDR           = $FE00

SELECT_ADDR          = $0500    ; game-start code runs here
SELECT_CLEAR_ADDR    = $01E0    ; and ends here, in the stack page

; Hardware
PPU_CTRL             = $2000
PPU_MASK             = $2001
PPU_STATUS           = $2002
PPU_OAM_ADDR         = $2003
PPU_OAM_DATA         = $2004
PPU_SCROLL           = $2005
PPU_ADDRESS          = $2006
PPU_DATA             = $2007
OAM_DMA              = $4014
APU_STATUS           = $4015
JOY1_FRAME           = $4016
JOY2_FRAME           = $4017

MMC3_BANK_CTRL       = $8000
MMC3_BANK_DATA       = $8001
MMC3_MIRRORING       = $A000
MMC3_PRG_RAM_PROTECT = $A001
MMC3_IRQ_LATCH       = $C000
MMC3_IRQ_RELOAD      = $C001
MMC3_IRQ_DISABLE     = $E000
MMC3_IRQ_ENABLE      = $E001

MIRRORING            = $01      ; 1 horizontal, 0 vertical

; Buttons, in the order the pad shifts them out
BTN_A                = $80
BTN_B                = $40
BTN_SELECT           = $20
BTN_START            = $10
BTN_UP               = $08
BTN_DOWN             = $04
BTN_LEFT             = $02
BTN_RIGHT            = $01

Gamepad_DELAY_MAX    = 30       ; frames a button is held before it repeats
Gamepad_DELAY_SPEED  = 5        ; frames between repeats
GAMEPAD_MERGE_FLAG   = $04      ; set in Gamepad_Merge: the pads stay apart

ITEM_BUF_MAX         = PAGE_TURNING_SPEED   ; rows drawn per frame; 4 at most
ENTER_TIME_DELAY     = $30      ; frames the start sound plays before the game

; PPU command list
MODE_CNTL            = $FB      ; address high, low, count, bytes
MODE_CNTC            = $FC      ; address high, low, count: that many zeros
MODE_OVER            = $FF      ; ends a list of texts

QV_PPU_BUFFER_ROOM   = $BF      ; the 192-byte list less one for its end mark
TEXT_LEN_MAX         = 64       ; longer texts are cut so a row always fits

VRAM_PPU_ADDR        = $0000
VRAM_PPU_SIZE        = $2000
NAME_TABLE_PPU_ADDR  = $2000
NAME_TABLE_PPU_SIZE  = $03C0
ATTRIBUTE_PPU_ADDR   = $23C0
CHAR_MODE_OPEN       = 1        ; 1: text bytes go through Char_Mapping_Data

; Copy modes of QV_Data_Copy
QV_MODE_RAM_TO_RAM   = 0
QV_MODE_RAM_TO_PPU   = 1
QV_MODE_PPU_TO_RAM   = 2
QV_MODE_PPU_CLEAR    = 3
QV_MODE_RAM_CLEAR    = 4

;------------------------------------------------------------------------------
; RAM
;------------------------------------------------------------------------------
User_Addr            = $40

    .RSSET User_Addr
Sprite_Count         .RS 1      ; sprites still free in this frame's list
Sprite_X_Index       .RS 1      ; where this frame's list starts in the page
Sprite_List_Index    .RS 1      ; read position in the custom sprite list
Cursor_List_Index    .RS 1      ; next entry of the big cursor
Gamepad_Keep         .RS 2      ; buttons held
Gamepad_Once         .RS 2      ; buttons newly pressed
Gamepad_Temp         .RS 2      ; last accepted state
Gamepad_0_State      .RS 1      ; first reading of each pad
Gamepad_1_State      .RS 1
Gamepad_0_Value      .RS 1      ; second reading of each pad
Gamepad_1_Value      .RS 1
Gamepad_Port_Value   .RS 1
Gamepad_Merge        .RS 2
Gamepad_Auto_Delay   .RS 2
Page_Cur_L           .RS 1      ; first game of the page shown
Page_Cur_H           .RS 1
Page_Old_L           .RS 1
Page_Old_H           .RS 1
Sel_Cur_L            .RS 1      ; the selected game
Sel_Cur_H            .RS 1
Sel_Old_L            .RS 1
Sel_Old_H            .RS 1
Sel_Data_L           .RS 1      ; selection's row inside the page
Sel_Data_H           .RS 1
Page_Update_Flag     .RS 1      ; non-zero while a page is being redrawn
Item_Update_Index    .RS 1      ; row being redrawn
Item_Show_Cnt        .RS 1      ; rows done in this frame
Item_Show_L          .RS 1      ; game to write in this row
Item_Show_H          .RS 1
Item_Clean_L         .RS 1      ; game to erase from this row
Item_Clean_H         .RS 1
Time_Delay           .RS 1      ; frames to wait, counted down by the NMI
QV_Data_L            .RS 1      ; general pointer
QV_Data_H            .RS 1
QV_Addr_L            .RS 1      ; name-table offset of the current text
QV_Addr_H            .RS 1
QV_Tile_L            .RS 1      ; pointer into the stored name table
QV_Tile_H            .RS 1
QV_Data_Tmp          .RS 1
QV_Data_Cnt          .RS 1
Digits_1             .RS 1
Digits_10            .RS 1
Digits_100           .RS 1
QV_Clear_Val         .RS 1      ; fill value of the clear modes
QV_Cpy_From_L        .RS 1
QV_Cpy_From_H        .RS 1
QV_Cpy_To_L          .RS 1
QV_Cpy_To_H          .RS 1
QV_Cpy_Count_L       .RS 1
QV_Cpy_Count_H       .RS 1
QV_Cpy_Port_L        .RS 1      ; pointer to a copy parameter block
QV_Cpy_Port_H        .RS 1
Music_Bank_8000      .RS 1      ; banks the music wants mapped
Music_Bank_A000      .RS 1
Bank_Buf_8000        .RS 1      ; banks mapped now
Bank_Buf_A000        .RS 1
User_Addr_End        .RS 1
QV_Word_L            .RS 1
QV_Word_H            .RS 1

; Starting a game. The plain board files use the block from
; Game_Temp_Reg_Addr for their register arithmetic; it overlays the bank
; buffers, which are of no use by then.
Chr_Reg_0            .RS 1
Chr_Reg_1            .RS 1
Chr_Reg_2            .RS 1
Chr_Reg_3            .RS 1
Prg_Reg_0            .RS 1
Prg_Reg_1            .RS 1
Prg_Reg_2            .RS 1
Prg_Reg_3            .RS 1
Prg_Size             .RS 1
Chr_Size             .RS 1
Game_Prg_Offset_L    .RS 1      ; 8 KB units
Game_Prg_Offset_H    .RS 1
Game_Prg_Size        .RS 1
Game_Chr_Offset_L    .RS 1
Game_Chr_Offset_H    .RS 1
Game_Chr_Size        .RS 1      ; 0: the game has CHR RAM of its own
Game_Flags           .RS 1      ; D0 mirroring (1 V), D1 battery, D2 four-screen
Game_Mapper          .RS 1
Game_Mapper_Code     .RS 1
Game_Mapper_Flag     .RS 1
Game_Prg_Banking_Mode .RS 1
Game_Chr_Banking_Mode .RS 1
Game_Reg_0_For_Chr   .RS 1      ; outer registers while the CHR is copied
Game_Reg_1_For_Chr   .RS 1
Game_Reg_2_For_Chr   .RS 1
Game_Reg_3_For_Chr   .RS 1
Game_Reg_4_For_Chr   .RS 1
Game_Reg_5_For_Chr   .RS 1
Game_Reg_6_For_Chr   .RS 1
Game_Reg_7_For_Chr   .RS 1
Game_Reg_0_For_Prg   .RS 1      ; outer registers the game runs with
Game_Reg_1_For_Prg   .RS 1
Game_Reg_2_For_Prg   .RS 1
Game_Reg_3_For_Prg   .RS 1
Game_Reg_4_For_Prg   .RS 1
Game_Reg_5_For_Prg   .RS 1
Game_Reg_6_For_Prg   .RS 1
Game_Reg_7_For_Prg   .RS 1

Game_Temp_Reg_Addr   = Music_Bank_A000 + 1
GAME_SELECT_TEMP_SIZE = Chr_Size + 1 - Game_Temp_Reg_Addr

; Page $0200: the PPU command list and what the NMI keeps beside it
QV_PPU_Buffer        = $0200
    .RSSET QV_PPU_Buffer + $C0
QV_PPU_Ctrl          .RS 1
QV_PPU_Mask          .RS 1
QV_PPU_Cursor        .RS 1      ; end of the list
QV_PPU_Addr_L        .RS 1      ; address of the last text played
QV_PPU_Addr_H        .RS 1
QV_PPU_Palette       = QV_PPU_Buffer + $E0

SPRITES_PAGE         = 4
SPRITES_ADDR         = SPRITES_PAGE * $100

;------------------------------------------------------------------------------
; The list
;------------------------------------------------------------------------------
ITEM_MAX             = GAMES_TOTAL - 1
PAGE_BIG_SIZE        = 5        ; pages A and B jump at once
PAGE_MAX             = ITEM_MAX / PAGE_SIZE * PAGE_SIZE
    .IF GAMES_TOTAL % PAGE_SIZE
PAGE_MAX_COUNT       = GAMES_TOTAL / PAGE_SIZE + 1
    .ELSE
PAGE_MAX_COUNT       = GAMES_TOTAL / PAGE_SIZE
    .ENDIF

    .IF CUSTOM_MENU_ENABLE
    INCLUDE "build/game_item_addr.asm"
    INCLUDE "build/game_caption_addr.asm"
    INCLUDE "build/game_page_number_addr.asm"
    .ELSE
    .IF MENU_SHOW_STYLE = 0
    .IF PAGE_SIZE = 5
ITEM_SHOW_POS        = $20C6
    .ENDIF
    .IF PAGE_SIZE = 10
ITEM_SHOW_POS        = $20C6
    .ENDIF
    .IF PAGE_SIZE = 15
ITEM_SHOW_POS        = $20A6
    .ENDIF
    .IF PAGE_SIZE = 20
ITEM_SHOW_POS        = $20A6
    .ENDIF
    ; the caption "N IN 1" stays centred whatever the digits of N
    .IF GAMES_TOTAL > 999
TITLE_SHOW_POS       = $206B
    .ELSE
    .IF GAMES_TOTAL > 9
TITLE_SHOW_POS       = $206C
    .ELSE
TITLE_SHOW_POS       = $206D
    .ENDIF
    .ENDIF
PAGE_INDER_SHOW_POS  = $234E
    .ELSE
    ; every page size starts on the same row: twenty rows from here still end above the page indicator
ITEM_SHOW_POS        = $20C6
TITLE_SHOW_POS       = $2064
PAGE_INDER_SHOW_POS  = $236E
    .ENDIF
    .ENDIF
SUB_TITLE_SHOW_POS   = $2087

    .IF MENU_SHOW_STYLE = 0
Char_Arrow           = $1F
    .ELSE
Char_Arrow           = $1A
    .ENDIF
ARROW_X_OFFSET       = (((ITEM_SHOW_POS & $1F) - 1) << 3) - 2
ARROW_Y_OFFSET       = (((ITEM_SHOW_POS & $03FF) >> 5) << 3) - 1

; Digits of the page indicator, fixed by the page count
    .IF PAGE_MAX_COUNT >= 100
PAGE_NUMBER_TEXT_LEN = 7
    .ELSE
    .IF PAGE_MAX_COUNT >= 10
PAGE_NUMBER_TEXT_LEN = 5
    .ELSE
PAGE_NUMBER_TEXT_LEN = 3
    .ENDIF
    .ENDIF

; Custom sprites walked through a frame, at most what an 8-bit index reaches
    .IF SPRITE_TILE_SIZE > 255
SPRITE_LIST_COUNT    = 255
    .ELSE
SPRITE_LIST_COUNT    = SPRITE_TILE_SIZE
    .ENDIF

;------------------------------------------------------------------------------
; Per-game data: records that start a game, one index byte per game
;------------------------------------------------------------------------------
    .IF FINAL_DATA_ENABLE
    .BANK GAME_DATA_INDEX & BANK_DATA_MASK
    .ORG GAME_DATA_INDEX_ADDR
    INCLUDE "build/game_final_data_bank.asm"
    .IF FINAL_DATA_BANK_COUNT > 0
    .BANK (GAME_DATA_BANK + 0) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_final_data_0.asm"
    .ENDIF
    .IF FINAL_DATA_BANK_COUNT > 1
    .BANK (GAME_DATA_BANK + 1) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_final_data_1.asm"
    .ENDIF
    .IF FINAL_DATA_BANK_COUNT > 2
    .BANK (GAME_DATA_BANK + 2) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_final_data_2.asm"
    .ENDIF
    .IF FINAL_DATA_BANK_COUNT > 3
    .BANK (GAME_DATA_BANK + 3) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_final_data_3.asm"
    .ENDIF
    .IF FINAL_DATA_BANK_COUNT > 4
    .BANK (GAME_DATA_BANK + 4) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_final_data_4.asm"
    .ENDIF
    .IF FINAL_DATA_BANK_COUNT > 5
    .BANK (GAME_DATA_BANK + 5) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_final_data_5.asm"
    .ENDIF
    .IF FINAL_DATA_BANK_COUNT > 6
    .BANK (GAME_DATA_BANK + 6) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_final_data_6.asm"
    .ENDIF
    .IF FINAL_DATA_BANK_COUNT > 7
    .BANK (GAME_DATA_BANK + 7) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_final_data_7.asm"
    .ENDIF
    .IF MENU_PRG_SIZE >= 32
    .IF FINAL_DATA_BANK_COUNT > 8
    .BANK (GAME_DATA_BANK + 4) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_final_data_8.asm"
    .ENDIF
    .IF FINAL_DATA_BANK_COUNT > 9
    .BANK (GAME_DATA_BANK + 5) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_final_data_9.asm"
    .ENDIF
    .IF FINAL_DATA_BANK_COUNT > 10
    .BANK (GAME_DATA_BANK + 6) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_final_data_A.asm"
    .ENDIF
    .IF FINAL_DATA_BANK_COUNT > 11
    .BANK (GAME_DATA_BANK + 7) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_final_data_B.asm"
    .ENDIF
    .ENDIF
    .ELSE
    .BANK GAME_DATA_INDEX & BANK_DATA_MASK
    .ORG GAME_DATA_INDEX_ADDR
    INCLUDE "build/game_data_bank.asm"
    .IF DATA_BANK_COUNT > 0
    .BANK (GAME_DATA_BANK + 0) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_data_0.asm"
    .ENDIF
    .IF DATA_BANK_COUNT > 1
    .BANK (GAME_DATA_BANK + 1) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_data_1.asm"
    .ENDIF
    .IF DATA_BANK_COUNT > 2
    .BANK (GAME_DATA_BANK + 2) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_data_2.asm"
    .ENDIF
    .IF DATA_BANK_COUNT > 3
    .BANK (GAME_DATA_BANK + 3) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_data_3.asm"
    .ENDIF
    .IF DATA_BANK_COUNT > 4
    .BANK (GAME_DATA_BANK + 4) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_data_4.asm"
    .ENDIF
    .IF DATA_BANK_COUNT > 5
    .BANK (GAME_DATA_BANK + 5) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_data_5.asm"
    .ENDIF
    .IF DATA_BANK_COUNT > 6
    .BANK (GAME_DATA_BANK + 6) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_data_6.asm"
    .ENDIF
    .IF DATA_BANK_COUNT > 7
    .BANK (GAME_DATA_BANK + 7) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_data_7.asm"
    .ENDIF
    .IF MENU_PRG_SIZE >= 32
    .IF DATA_BANK_COUNT > 8
    .BANK (GAME_DATA_BANK + 4) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_data_8.asm"
    .ENDIF
    .IF DATA_BANK_COUNT > 9
    .BANK (GAME_DATA_BANK + 5) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_data_9.asm"
    .ENDIF
    .IF DATA_BANK_COUNT > 10
    .BANK (GAME_DATA_BANK + 6) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_data_A.asm"
    .ENDIF
    .IF DATA_BANK_COUNT > 11
    .BANK (GAME_DATA_BANK + 7) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_data_B.asm"
    .ENDIF
    .ENDIF
    .ENDIF

;------------------------------------------------------------------------------
; Names: one index byte per game, then the banks of length-prefixed names
;------------------------------------------------------------------------------
    .BANK GAME_NAME_INDEX & BANK_DATA_MASK
    .ORG GAME_NAME_INDEX_ADDR
    INCLUDE "build/game_list_bank.asm"

    .IF NAME_BANK_COUNT > 0
    .BANK (GAME_NAME_BANK + $00) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_list_0.asm"
    .ENDIF
    .IF NAME_BANK_COUNT > 1
    .BANK (GAME_NAME_BANK + $01) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_list_1.asm"
    .ENDIF
    .IF NAME_BANK_COUNT > 2
    .BANK (GAME_NAME_BANK + $02) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_list_2.asm"
    .ENDIF
    .IF NAME_BANK_COUNT > 3
    .BANK (GAME_NAME_BANK + $03) & BANK_DATA_MASK
    .ORG GAME_DATA_ADDR
    INCLUDE "build/game_list_3.asm"
    .ENDIF
    .IF NAME_BANK_COUNT > 4
    .BANK (GAME_NAME_BANK + $04) & BANK_DATA_MASK
    .ORG GAME_NAME_ADDR
    INCLUDE "build/game_list_4.asm"
    .ENDIF
    .IF NAME_BANK_COUNT > 5
    .BANK (GAME_NAME_BANK + $05) & BANK_DATA_MASK
    .ORG GAME_NAME_ADDR
    INCLUDE "build/game_list_5.asm"
    .ENDIF
    .IF NAME_BANK_COUNT > 6
    .BANK (GAME_NAME_BANK + $06) & BANK_DATA_MASK
    .ORG GAME_NAME_ADDR
    INCLUDE "build/game_list_6.asm"
    .ENDIF
    .IF NAME_BANK_COUNT > 7
    .BANK (GAME_NAME_BANK + $07) & BANK_DATA_MASK
    .ORG GAME_NAME_ADDR
    INCLUDE "build/game_list_7.asm"
    .ENDIF
    .IF NAME_BANK_COUNT > 8
    .BANK (GAME_NAME_BANK + $08) & BANK_DATA_MASK
    .ORG GAME_NAME_ADDR
    INCLUDE "build/game_list_8.asm"
    .ENDIF
    .IF NAME_BANK_COUNT > 9
    .BANK (GAME_NAME_BANK + $09) & BANK_DATA_MASK
    .ORG GAME_NAME_ADDR
    INCLUDE "build/game_list_9.asm"
    .ENDIF
    .IF NAME_BANK_COUNT > 10
    .BANK (GAME_NAME_BANK + $0A) & BANK_DATA_MASK
    .ORG GAME_NAME_ADDR
    INCLUDE "build/game_list_A.asm"
    .ENDIF
    .IF MENU_PRG_SIZE >= 32
    .IF NAME_BANK_COUNT > 11
    .BANK (GAME_NAME_BANK + $0B) & BANK_DATA_MASK
    .ORG GAME_NAME_ADDR
    INCLUDE "build/game_list_B.asm"
    .ENDIF
    .IF NAME_BANK_COUNT > 12
    .BANK (GAME_NAME_BANK + $0B) & BANK_DATA_MASK
    .ORG GAME_NAME_ADDR
    INCLUDE "build/game_list_C.asm"
    .ENDIF
    .IF NAME_BANK_COUNT > 13
    .BANK (GAME_NAME_BANK + $0B) & BANK_DATA_MASK
    .ORG GAME_NAME_ADDR
    INCLUDE "build/game_list_D.asm"
    .ENDIF
    .IF NAME_BANK_COUNT > 14
    .BANK (GAME_NAME_BANK + $0B) & BANK_DATA_MASK
    .ORG GAME_NAME_ADDR
    INCLUDE "build/game_list_E.asm"
    .ENDIF
    .IF NAME_BANK_COUNT > 15
    .BANK (GAME_NAME_BANK + $0B) & BANK_DATA_MASK
    .ORG GAME_NAME_ADDR
    INCLUDE "build/game_list_F.asm"
    .ENDIF
    .ENDIF

;------------------------------------------------------------------------------
; Pattern tables, the stored name table and the custom sprites
;------------------------------------------------------------------------------
    .BANK CHR_DATA_BANK & BANK_DATA_MASK
    .ORG CHR_DATA_ADDR
    .IF CUSTOM_MENU_ENABLE
    INCBIN "build/custom_chr_data.bin"
    .ELSE
    INCBIN "menu_data/chr_data.bin"
    .ENDIF

    .BANK NAME_TABLE_DATA_BANK & BANK_DATA_MASK
    .ORG NAME_TABLE_DATA_ADDR
    INCBIN "build/game_name_table.bin"

    .BANK SPRITE_TILE_BANK & BANK_DATA_MASK
    .ORG SPRITE_TILE_ADDR
    INCLUDE "build/game_sprite_list.asm"

;==============================================================================
; The program, mapped at $8000 except while the music plays
;==============================================================================
    .BANK PROGRAM_BANK & BANK_DATA_MASK
    .ORG PROGRAM_ADDR

;------------------------------------------------------------------------------
; Start-up, entered from ResetProgram with the program bank mapped
;------------------------------------------------------------------------------
ProgramBegin:
InitChr:
    LDX #5
.InitBank:
    STX MMC3_BANK_CTRL
    LDA InitData,X
    STA MMC3_BANK_DATA
    DEX
    BPL .InitBank
    LDA #MIRRORING
    STA MMC3_MIRRORING

    ; let the PPU warm up: two whole vertical blanks
    LDX #2
.WaitBlank:
    BIT PPU_STATUS
    BPL .WaitBlank
.WaitBlankEnd:
    BIT PPU_STATUS
    BMI .WaitBlankEnd
    DEX
    BNE .WaitBlank

    JSR NmiWait
    JSR PaletteClear
    JSR ScreenClear
    LDA #$0F
    STA APU_STATUS

    ; Inline, as it wipes the stack page too
RamClear:
    LDA #0
    STA <$00
    STA <$01
    TAY
    LDX #8
.ClearPage:
    STA [$00],Y
    INY
    BNE .ClearPage
    INC <$01
    DEX
    BNE .ClearPage
    LDA #$FF
    STA <User_Addr_End

    JSR SpriteClear
    JSR PaletteSet
    JSR SetAttribute
    JSR WritePPUVram
    JSR Sund_Bank_Init
    .IF CUSTOM_MENU_ENABLE
    JSR WriteNameTable
    .ENDIF
    JSR UpdatePageEnable

    ; NMI on, background from the first pattern table, sprites from the second
    .IF NMI_MODE
    .IF BIG_SPRITE
    LDA #$A8
    .ELSE
    LDA #$88
    .ENDIF
    .ELSE
    .IF BIG_SPRITE
    LDA #$28
    .ELSE
    LDA #$08
    .ENDIF
    .ENDIF
    STA QV_PPU_Ctrl
    STA PPU_CTRL

    LDA #$10
    JSR NmiDelay
    JSR SetTitleText
    .IF MENU_MUSIC >= 2
    LDA #SOUNG_BGM - 1
    JSR Sound_Init
    .ENDIF
    LDA #$1E                    ; show background and sprites
    STA QV_PPU_Mask
    JMP MainLoop

InitData:
    .DB $00,$02,$04,$05,$06,$07,$30,$31

;------------------------------------------------------------------------------
; Start-up helpers
;------------------------------------------------------------------------------
; Waits for the next vertical blank, with the NMI off
NmiWait:
    BIT PPU_STATUS
.Wait:
    BIT PPU_STATUS
    BPL .Wait
    RTS

; Black palette, in the PPU and in the copy the NMI uploads
PaletteClear:
    LDA #$3F
    STA PPU_ADDRESS
    LDA #$00
    STA PPU_ADDRESS
    TAX
    LDA #$0F
.Entry:
    STA QV_PPU_Palette,X
    STA PPU_DATA
    INX
    CPX #32
    BNE .Entry
    LDA #0
    STA PPU_ADDRESS
    STA PPU_ADDRESS
    RTS

; Pattern tables and name tables to zero
ScreenClear:
    LDA #0
    STA <QV_Clear_Val
    LDX #LOW(ScreenClearData)
    LDY #HIGH(ScreenClearData)
    JMP QV_Data_Copy

SpriteClear:
    LDA #$F8
    STA <QV_Clear_Val
    LDX #LOW(SpriteClearData)
    LDY #HIGH(SpriteClearData)
    JMP QV_Data_Copy

PaletteSet:
    LDX #LOW(PaletteSetData)
    LDY #HIGH(PaletteSetData)
    JMP QV_Data_Copy

SetAttribute:
    LDX #LOW(AttributeSetData)
    LDY #HIGH(AttributeSetData)
    JMP QV_Data_Copy

WritePPUVram:
    LDA #CHR_DATA_BANK & BANK_DATA_MASK
    JSR SwitchBankA000
    LDX #LOW(PPUVramData)
    LDY #HIGH(PPUVramData)
    JMP QV_Data_Copy

    .IF CUSTOM_MENU_ENABLE
WriteNameTable:
    LDA #NAME_TABLE_DATA_BANK & BANK_DATA_MASK
    JSR SwitchBankA000
    LDX #LOW(NameTableData)
    LDY #HIGH(NameTableData)
    JMP QV_Data_Copy
    .ENDIF

; Copy parameter blocks: source, target, length, mode
ScreenClearData:
    .DW 0, VRAM_PPU_ADDR, $3000
    .DB QV_MODE_PPU_CLEAR
SpriteClearData:
    .DW 0, SPRITES_ADDR, $0100
    .DB QV_MODE_RAM_CLEAR
PaletteSetData:
    .DW PaletteData, QV_PPU_Palette, 32
    .DB QV_MODE_RAM_TO_RAM
AttributeSetData:
    .DW AttributeData, ATTRIBUTE_PPU_ADDR, 64
    .DB QV_MODE_RAM_TO_PPU
PPUVramData:
    .DW CHR_DATA_ADDR, VRAM_PPU_ADDR, VRAM_PPU_SIZE
    .DB QV_MODE_RAM_TO_PPU
NameTableData:
    .DW NAME_TABLE_DATA_ADDR, NAME_TABLE_PPU_ADDR, NAME_TABLE_PPU_SIZE
    .DB QV_MODE_RAM_TO_PPU

;------------------------------------------------------------------------------
; QV_Data_Copy: runs the copy block at X (low), Y (high).
; The length counts down with its low byte in X and its high byte in
; QV_Cpy_Count_H; the overflow flag stays clear so BVC always branches.
;------------------------------------------------------------------------------
QV_Data_Copy:
    STX <QV_Cpy_Port_L
    STY <QV_Cpy_Port_H
    LDX #0
    LDY #0
.Param:
    LDA [QV_Cpy_Port_L],Y
    STA <QV_Cpy_From_L,X
    INX
    INY
    CPY #6
    BNE .Param
    LDA [QV_Cpy_Port_L],Y
    CLV
    LDX <QV_Cpy_Count_L
    BNE .Partial
    LDY <QV_Cpy_Count_H
    BEQ .Done                   ; nothing to copy
    BVC .Whole
.Partial:
    INC <QV_Cpy_Count_H         ; the partial page counts as one more pass
.Whole:
    LDY #0
    CMP #QV_MODE_RAM_TO_RAM
    BEQ QV_Copy_Ram_To_Ram
    CMP #QV_MODE_RAM_TO_PPU
    BEQ QV_Copy_Ram_To_Ppu
    CMP #QV_MODE_PPU_TO_RAM
    BEQ QV_Copy_Ppu_To_Ram
    CMP #QV_MODE_PPU_CLEAR
    BEQ QV_Copy_Ppu_Clear
    CMP #QV_MODE_RAM_CLEAR
    BEQ QV_Copy_Ram_Clear
.Done:
    RTS

QV_Copy_Ram_To_Ram:
    LDA [QV_Cpy_From_L],Y
    STA [QV_Cpy_To_L],Y
    INY
    BNE .Next
    INC <QV_Cpy_From_H
    INC <QV_Cpy_To_H
.Next:
    DEX
    BNE QV_Copy_Ram_To_Ram
    DEC <QV_Cpy_Count_H
    BNE QV_Copy_Ram_To_Ram
    RTS

QV_Copy_Ram_To_Ppu:
    JSR QV_Set_Ppu_Target
.Byte:
    LDA [QV_Cpy_From_L],Y
    STA PPU_DATA
    INY
    BNE .Next
    INC <QV_Cpy_From_H
.Next:
    DEX
    BNE .Byte
    DEC <QV_Cpy_Count_H
    BNE .Byte
    RTS

QV_Copy_Ppu_To_Ram:
    LDA <QV_Cpy_From_H
    STA PPU_ADDRESS
    LDA <QV_Cpy_From_L
    STA PPU_ADDRESS
    LDA PPU_DATA                ; the first read returns the stale buffer
.Byte:
    LDA PPU_DATA
    STA [QV_Cpy_To_L],Y
    INY
    BNE .Next
    INC <QV_Cpy_To_H
.Next:
    DEX
    BNE .Byte
    DEC <QV_Cpy_Count_H
    BNE .Byte
    RTS

QV_Copy_Ppu_Clear:
    JSR QV_Set_Ppu_Target
    LDA <QV_Clear_Val
.Byte:
    STA PPU_DATA
    DEX
    BNE .Byte
    DEC <QV_Cpy_Count_H
    BNE .Byte
    RTS

QV_Copy_Ram_Clear:
    LDA <QV_Clear_Val
.Byte:
    STA [QV_Cpy_To_L],Y
    INY
    BNE .Next
    INC <QV_Cpy_To_H
.Next:
    DEX
    BNE .Byte
    DEC <QV_Cpy_Count_H
    BNE .Byte
    RTS

QV_Set_Ppu_Target:
    BIT PPU_STATUS
    LDA <QV_Cpy_To_H
    STA PPU_ADDRESS
    LDA <QV_Cpy_To_L
    STA PPU_ADDRESS
    RTS

;------------------------------------------------------------------------------
; The frame, called from NmiProgram with the program bank mapped
;------------------------------------------------------------------------------
NmiProgramProcess:
    LDA #0                      ; no NMI while the PPU is fed
    STA PPU_CTRL
    JSR QV_PPU_Process
    LDA <Page_Update_Flag
    BNE .NoSprites
    STA PPU_OAM_ADDR
    LDA #SPRITES_PAGE
    STA OAM_DMA
.NoSprites:
    JSR QV_PPU_Process_Reset
    LDA QV_PPU_Ctrl             ; from here on frames may nest
    STA PPU_CTRL
    JSR Gamepad_Process
    JSR Gamepad_Auto_Press
    JSR SelectItemIndex
    JSR UpdatePageContent
    JSR SpriteSet
TimeCount:
    LDA <Time_Delay
    BEQ .Done
    DEC <Time_Delay
.Done:
    RTS

; Plays the command list, or uploads the palette when nothing is drawn
QV_PPU_Process:
    LDA QV_PPU_Buffer
    CMP #MODE_CNTL
    BEQ .Play
    CMP #MODE_CNTC
    BEQ .Play
    LDA <Page_Update_Flag
    BNE .Done
    LDA #$3F
    STA PPU_ADDRESS
    LDA #$00
    STA PPU_ADDRESS
    TAX
.Palette:
    LDA QV_PPU_Palette,X
    STA PPU_DATA
    INX
    CPX #32
    BNE .Palette
.Done:
    RTS

.Play:
    LDA #0                      ; a long list may run past the blank
    STA PPU_MASK
    LDX QV_PPU_Cursor
    STA QV_PPU_Buffer,X
    STA QV_PPU_Cursor
    TAX
.Command:
    LDA QV_PPU_Buffer,X
    CMP #MODE_CNTL
    BEQ .Copy
    CMP #MODE_CNTC
    BEQ .Zeros
    RTS
.Copy:
    LDA QV_PPU_Buffer+1,X
    STA PPU_ADDRESS
    STA QV_PPU_Addr_H
    LDA QV_PPU_Buffer+2,X
    STA PPU_ADDRESS
    STA QV_PPU_Addr_L
    LDY QV_PPU_Buffer+3,X
    INX
    INX
    INX
    INX
    TYA
    BEQ .Command
.CopyByte:
    LDA QV_PPU_Buffer,X
    STA PPU_DATA
    INX
    DEY
    BNE .CopyByte
    BEQ .Command
.Zeros:
    LDA QV_PPU_Buffer+1,X
    STA PPU_ADDRESS
    LDA QV_PPU_Buffer+2,X
    STA PPU_ADDRESS
    LDY QV_PPU_Buffer+3,X
    INX
    INX
    INX
    INX
    LDA #0
.ZeroByte:
    STA PPU_DATA
    DEY
    BNE .ZeroByte
    BEQ .Command

QV_PPU_Process_Reset:
    LDA #0
    STA QV_PPU_Buffer
    STA PPU_ADDRESS
    STA PPU_ADDRESS
    STA PPU_SCROLL
    STA PPU_SCROLL
    LDA QV_PPU_Mask
    STA PPU_MASK
    RTS

; A = frames to wait. Later frames nest on top of the caller and count it down.
NmiDelay:
    STA <Time_Delay
.Wait:
    LDA <Time_Delay
    BNE .Wait
    RTS

;------------------------------------------------------------------------------
; Controllers
;------------------------------------------------------------------------------
; Reads both pads once; bits 0 and 1 of each port are taken as one button
GamepadDatacan:
    LDX #1
    STX JOY1_FRAME
    DEX
    STX JOY1_FRAME
    LDX #8
.Bit:
    LDA JOY1_FRAME
    STA <Gamepad_Port_Value
    LSR A
    ORA <Gamepad_Port_Value
    LSR A
    ROL <Gamepad_0_Value
    LDA JOY2_FRAME
    STA <Gamepad_Port_Value
    LSR A
    ORA <Gamepad_Port_Value
    LSR A
    ROL <Gamepad_1_Value
    DEX
    BNE .Bit
    RTS

; Two readings must agree, else the last accepted state stands
Gamepad_Process:
    JSR GamepadDatacan
    LDA <Gamepad_0_Value
    STA <Gamepad_0_State
    LDA <Gamepad_1_Value
    STA <Gamepad_1_State
    JSR GamepadDatacan
    LDX #1
.Check:
    LDA <Gamepad_0_Value,X
    CMP <Gamepad_0_State,X
    BEQ .Agreed
    LDA <Gamepad_Temp,X
    STA <Gamepad_0_Value,X
.Agreed:
    DEX
    BPL .Check

    LDA <Gamepad_Merge
    AND #GAMEPAD_MERGE_FLAG
    BNE .Apart
    LDA <Gamepad_0_Value
    ORA <Gamepad_1_Value
    STA <Gamepad_0_Value
.Apart:
    LDX #1
.Edge:
    LDA <Gamepad_0_Value,X
    EOR <Gamepad_Temp,X
    AND <Gamepad_0_Value,X
    STA <Gamepad_Once,X
    LDA <Gamepad_0_Value,X
    STA <Gamepad_Keep,X
    STA <Gamepad_Temp,X
    DEX
    BPL .Edge
    RTS

; A held button acts again after Gamepad_DELAY_MAX frames, then every
; Gamepad_DELAY_SPEED frames
Gamepad_Auto_Press:
    LDA <Gamepad_Keep
    ORA <Gamepad_Keep+1
    BNE .Held
    STA <Gamepad_Auto_Delay
    RTS
.Held:
    INC <Gamepad_Auto_Delay
    LDA <Gamepad_Auto_Delay
    CMP #Gamepad_DELAY_MAX
    BCC .Done
    SBC #Gamepad_DELAY_SPEED
    STA <Gamepad_Auto_Delay
    LDA <Gamepad_Keep
    STA <Gamepad_Once
    LDA <Gamepad_Keep+1
    STA <Gamepad_Once+1
.Done:
    RTS

;------------------------------------------------------------------------------
; Input: one button at a time moves the selection; Down and Select step
; whatever else is held
;------------------------------------------------------------------------------
SelectItemIndex:
    LDA <Page_Update_Flag
    BNE .Done
    LDA <Time_Delay
    BNE .Done

    LDA <Gamepad_Once
    CMP #BTN_B
    BNE .NotB
    JSR SelectPageSound
    JSR SelectPreBigPage
.NotB:
    LDA <Gamepad_Once
    CMP #BTN_A
    BNE .NotA
    JSR SelectPageSound
    JSR SelectNextBigPage
.NotA:
    LDA <Gamepad_Once
    CMP #BTN_UP
    BNE .NotUp
    JSR SelectItemSound
    JSR SelectPreItem
.NotUp:
    LDA <Gamepad_Once
    AND #BTN_SELECT | BTN_DOWN
    BEQ .NotDown
    JSR SelectItemSound
    JSR SelectNextItem
.NotDown:
    LDA <Gamepad_Once
    CMP #BTN_LEFT
    BNE .NotLeft
    JSR SelectPageSound
    JSR SelectPrePage
.NotLeft:
    LDA <Gamepad_Once
    CMP #BTN_RIGHT
    BNE .NotRight
    JSR SelectPageSound
    JSR SelectNextPage
.NotRight:
    LDA <Gamepad_Once
    CMP #BTN_START
    BNE .Done
    JSR SelectEnterSound
    .IF MENU_MUSIC >= 1
    LDA #ENTER_TIME_DELAY       ; let the sound be heard
    JSR NmiDelay
    .ENDIF
    JMP SelectGame
.Done:
    RTS

;------------------------------------------------------------------------------
; Moves
;------------------------------------------------------------------------------
SaveOldSelect:
    LDA <Page_Cur_L
    STA <Page_Old_L
    LDA <Page_Cur_H
    STA <Page_Old_H
    LDA <Sel_Cur_L
    STA <Sel_Old_L
    LDA <Sel_Cur_H
    STA <Sel_Old_H
    RTS

SelectPreItem:
    JSR SaveOldSelect
    LDA <Sel_Cur_L
    ORA <Sel_Cur_H
    BNE .Step
    JSR SetMaxPage              ; from the first game to the last
    JMP SetMaxItem
.Step:
    LDA <Sel_Cur_L
    CMP <Page_Cur_L
    BNE .SamePage
    JSR DecPageIndex
.SamePage:
    JMP DecSelItem

SelectNextItem:
    JSR SaveOldSelect
    LDA <Sel_Cur_L
    CMP #LOW(ITEM_MAX)
    BNE .Step
    LDA <Sel_Cur_H
    CMP #HIGH(ITEM_MAX)
    BNE .Step
    JSR SetMinPage              ; from the last game to the first
    JMP SetMinItem
.Step:
    LDA <Page_Cur_L
    CLC
    ADC #PAGE_SIZE - 1
    CMP <Sel_Cur_L
    BNE .SamePage
    JSR IncPageIndex
.SamePage:
    JMP IncSelItem

SelectPrePage:
    JSR SaveOldSelect
    JSR IsMinPage
    BNE .Step
    JSR GetItemOffset           ; wrap to the last page, same row
    JSR SetMaxPage
    JMP SetItemOffset
.Step:
    JMP DecSelItemByPage

SelectNextPage:
    JSR SaveOldSelect
    JSR IsMaxPage
    BNE .Step
    JSR GetItemOffset           ; wrap to the first page, same row
    JSR SetMinPage
    JMP SetItemOffset
.Step:
    JMP IncSelItemByPage

SelectPreBigPage:
    JSR SaveOldSelect
    JSR IsMinPage
    BNE .Step
    JSR GetItemOffset
    JSR SetMaxPage
    JMP SetItemOffset
.Step:
    JSR GetItemOffset
    LDA #PAGE_BIG_SIZE
    STA <QV_Data_Cnt
.Page:
    JSR SubPageSize
    JSR IsMinPage
    BEQ .Reached
    DEC <QV_Data_Cnt
    BNE .Page
.Reached:
    JSR SetItemOffset
    JMP UpdatePageEnable

SelectNextBigPage:
    JSR SaveOldSelect
    JSR IsMaxPage
    BNE .Step
    JSR GetItemOffset
    JSR SetMinPage
    JMP SetItemOffset
.Step:
    JSR GetItemOffset
    LDA #PAGE_BIG_SIZE
    STA <QV_Data_Cnt
.Page:
    JSR AddPageSize
    JSR IsMaxPage
    BEQ .Reached
    DEC <QV_Data_Cnt
    BNE .Page
.Reached:
    JSR SetItemOffset
    JMP UpdatePageEnable

DecSelItemByPage:
    JSR GetItemOffset
    JSR SubPageSize
    JSR SetItemOffset
    JMP UpdatePageEnable

IncSelItemByPage:
    JSR GetItemOffset
    JSR AddPageSize
    JSR SetItemOffset
    JMP UpdatePageEnable

; Z set on the first page
IsMinPage:
    LDA <Page_Cur_L
    ORA <Page_Cur_H
    RTS

; Z set on the last page
IsMaxPage:
    LDA <Page_Cur_L
    CMP #LOW(PAGE_MAX)
    BNE .Done
    LDA <Page_Cur_H
    CMP #HIGH(PAGE_MAX)
.Done:
    RTS

; Sel_Data = selection - page
GetItemOffset:
    LDA <Sel_Cur_L
    SEC
    SBC <Page_Cur_L
    STA <Sel_Data_L
    LDA <Sel_Cur_H
    SBC <Page_Cur_H
    STA <Sel_Data_H
    RTS

; selection = page + Sel_Data, at most the last game
SetItemOffset:
    LDA <Page_Cur_L
    CLC
    ADC <Sel_Data_L
    STA <Sel_Cur_L
    LDA <Page_Cur_H
    ADC <Sel_Data_H
    STA <Sel_Cur_H
    LDA #LOW(ITEM_MAX)
    CMP <Sel_Cur_L
    LDA #HIGH(ITEM_MAX)
    SBC <Sel_Cur_H
    BCC SetMaxItem
    RTS

SetMaxItem:
    LDA #LOW(ITEM_MAX)
    STA <Sel_Cur_L
    LDA #HIGH(ITEM_MAX)
    STA <Sel_Cur_H
    RTS

SetMinItem:
    LDA #0
    STA <Sel_Cur_L
    STA <Sel_Cur_H
    RTS

IncSelItem:
    INC <Sel_Cur_L
    BNE .Done
    INC <Sel_Cur_H
.Done:
    RTS

DecSelItem:
    LDA <Sel_Cur_L
    BNE .Low
    DEC <Sel_Cur_H
.Low:
    DEC <Sel_Cur_L
    RTS

AddPageSize:
    LDA <Page_Cur_L
    CLC
    ADC #PAGE_SIZE
    STA <Page_Cur_L
    LDA <Page_Cur_H
    ADC <$00
    STA <Page_Cur_H
    RTS

SubPageSize:
    LDA <Page_Cur_L
    SEC
    SBC #PAGE_SIZE
    STA <Page_Cur_L
    LDA <Page_Cur_H
    SBC #0
    STA <Page_Cur_H
    RTS

IncPageIndex:
    JSR AddPageSize
    JMP PageChanged

DecPageIndex:
    JSR SubPageSize
    JMP PageChanged

SetMinPage:
    LDA #0
    STA <Page_Cur_L
    STA <Page_Cur_H
    JMP PageChanged

SetMaxPage:
    LDA #LOW(PAGE_MAX)
    STA <Page_Cur_L
    LDA #HIGH(PAGE_MAX)
    STA <Page_Cur_H
; With a single page there is nothing to redraw
PageChanged:
    .IF PAGE_MAX_COUNT > 1
    JMP UpdatePageEnable
    .ELSE
    RTS
    .ENDIF

; Starts redrawing: the old page's names are erased row by row as the new
; page's are written
UpdatePageEnable:
    LDA #1
    STA <Page_Update_Flag
    LDA <Page_Cur_L
    STA <Item_Show_L
    LDA <Page_Cur_H
    STA <Item_Show_H
    LDA <Page_Old_L
    STA <Item_Clean_L
    LDA <Page_Old_H
    STA <Item_Clean_H
    LDA #0
    STA <Item_Update_Index
    RTS

;------------------------------------------------------------------------------
; Page drawing
;------------------------------------------------------------------------------
; Up to ITEM_BUF_MAX rows a frame; a row that does not fit in what is left
; of the command list waits for the next frame
UpdatePageContent:
    LDA <Page_Update_Flag
    BEQ .Done
    LDA <Item_Update_Index
    CMP #PAGE_SIZE
    BCC .Rows
    LDA #0
    STA <Page_Update_Flag
    JMP ShowPageIndex
.Rows:
    LDA #0
    STA <Item_Show_Cnt
.Row:
    JSR GetRowCost
    STA <QV_Data_Tmp
    LDA #QV_PPU_BUFFER_ROOM
    SEC
    SBC QV_PPU_Cursor
    CMP <QV_Data_Tmp
    BCC .Done
    JSR CleanOnceItem
    JSR WriteOnceItem
    INC <Item_Clean_L
    BNE .CleanDone
    INC <Item_Clean_H
.CleanDone:
    INC <Item_Show_L
    BNE .ShowDone
    INC <Item_Show_H
.ShowDone:
    INC <Item_Update_Index
    LDA <Item_Update_Index
    CMP #PAGE_SIZE
    BCS .Done
    INC <Item_Show_Cnt
    LDA <Item_Show_Cnt
    CMP #ITEM_BUF_MAX
    BCC .Row
.Done:
    RTS

; A = the most bytes this row's erase and write add to the command list
GetRowCost:
    JSR IsOverMaxCleanItem
    LDA #0
    BCS .NoClean
    JSR GetItemText
.NoClean:
    STA <QV_Data_Cnt
    JSR IsOverMaxShowItem
    LDA #0
    BCS .NoShow
    JSR GetItemText
.NoShow:
    CLC
    ADC <QV_Data_Cnt
    ADC #8
    RTS

; C set when the game to erase lies past the list's end; QV_Word = the game
IsOverMaxCleanItem:
    LDA <Item_Clean_L
    STA <QV_Word_L
    LDA <Item_Clean_H
    STA <QV_Word_H
    JMP IsOverMaxItem

; C set when the game to write lies past the list's end; QV_Word = the game
IsOverMaxShowItem:
    LDA <Item_Show_L
    STA <QV_Word_L
    LDA <Item_Show_H
    STA <QV_Word_H
IsOverMaxItem:
    LDA <QV_Word_L
    CMP #LOW(GAMES_TOTAL)
    LDA <QV_Word_H
    SBC #HIGH(GAMES_TOTAL)
    RTS

; Erases the name of Item_Clean: its cells show the picture behind again
CleanOnceItem:
    JSR IsOverMaxCleanItem
    BCS .Done
    JSR GetItemText
    BEQ .Done
    JSR BeginItemText
    LDY #0
.Char:
    JSR Clear_Tile_Replace
    STA QV_PPU_Buffer,X
    INX
    INY
    CPY <QV_Data_Cnt
    BNE .Char
    STX QV_PPU_Cursor
.Done:
    RTS

; Writes the name of Item_Show in the row Item_Update_Index
WriteOnceItem:
    JSR IsOverMaxShowItem
    BCS .Done
    JSR GetItemText
    BEQ .Done
    JSR BeginItemText
    JSR PutText
.Done:
    RTS

; Appends the text at QV_Data, QV_Data_Cnt bytes: a blank shows the picture
; behind it, any other byte its mapped tile
PutText:
    LDY #0
.Char:
    LDA [QV_Data_L],Y
    CMP #' '
    BNE .Mapped
    JSR Write_Tile_Replace
    JMP .Put
.Mapped:
    JSR GetMappingChar
.Put:
    STA QV_PPU_Buffer,X
    INX
    INY
    CPY <QV_Data_Cnt
    BNE .Char
    STX QV_PPU_Cursor
    RTS

; A = length of the name of game QV_Word, cut to TEXT_LEN_MAX, Z set when
; empty. The name's bank stays mapped with QV_Data at its length byte.
GetItemText:
    LDA #GAME_NAME_INDEX & BANK_DATA_MASK
    LDX #HIGH(GAME_NAME_INDEX_ADDR)
    LDY #GAME_NAME_BANK
    JSR LocateRecord
    LDY #0
    LDA [QV_Data_L],Y
    CMP #TEXT_LEN_MAX + 1
    BCC .Fits
    LDA #TEXT_LEN_MAX
.Fits:
    CMP #0
    RTS

; Finds the record of game QV_Word in a set of banks of the common form:
; an index byte per game at X * $100 in bank A, then the game's bank
; (relative to bank Y) starts with the number of its first game and a table
; of record addresses. Maps that bank; QV_Data = the record.
LocateRecord:
    JSR SwitchBankA000
    STY <QV_Data_Tmp
    TXA
    CLC
    ADC <QV_Word_H
    STA <QV_Data_H
    LDA <QV_Word_L
    STA <QV_Data_L
    LDY #0
    LDA [QV_Data_L],Y
    CLC
    ADC <QV_Data_Tmp
    AND #BANK_DATA_MASK
    JSR SwitchBankA000
    ; names and game data share the form and the address
    LDA <QV_Word_L
    SEC
    SBC GAME_DATA_ADDR
    STA <QV_Data_L
    LDA <QV_Word_H
    SBC GAME_DATA_ADDR+1
    STA <QV_Data_H
    ASL <QV_Data_L
    ROL <QV_Data_H
    LDA <QV_Data_L
    CLC
    ADC #LOW(GAME_DATA_ADDR + 2)
    STA <QV_Data_L
    LDA <QV_Data_H
    ADC #HIGH(GAME_DATA_ADDR + 2)
    STA <QV_Data_H
    LDA [QV_Data_L],Y
    TAX
    INY
    LDA [QV_Data_L],Y
    STA <QV_Data_H
    STX <QV_Data_L
    RTS

; Opens a text command for the row Item_Update_Index
BeginItemText:
    LDA <Item_Update_Index
    ASL A
    TAY
    LDX ItemShowPos,Y
    LDA ItemShowPos+1,Y
; Opens a text command at PPU address A (high), X (low) for the text at
; QV_Data and points QV_Tile at the stored name table under it.
; Out: X = list position for the text's bytes, QV_Data at its first byte.
BeginTextCommand:
    STX <QV_Addr_L
    STX <QV_Tile_L
    LDX QV_PPU_Cursor
    STA QV_PPU_Buffer+1,X
    AND #$03
    STA <QV_Addr_H
    CLC
    ADC #HIGH(NAME_TABLE_DATA_ADDR)
    STA <QV_Tile_H
    LDA #MODE_CNTL
    STA QV_PPU_Buffer,X
    LDA <QV_Addr_L
    STA QV_PPU_Buffer+2,X
    LDY #0
    LDA [QV_Data_L],Y
    CMP #TEXT_LEN_MAX + 1
    BCC .Fits
    LDA #TEXT_LEN_MAX
.Fits:
    STA <QV_Data_Cnt
    STA QV_PPU_Buffer+3,X
    INX
    INX
    INX
    INX
    INC <QV_Data_L
    BNE .Done
    INC <QV_Data_H
.Done:
    RTS

; A = the tile that the stored name table holds at column Y of the current
; text. Keeps X and Y; the $A000 bank is restored afterwards.
Write_Tile_Replace:
Clear_Tile_Replace:
Write_Caption_Replace:
    LDA #7
    STA MMC3_BANK_CTRL
    LDA #NAME_TABLE_DATA_BANK & BANK_DATA_MASK
    STA MMC3_BANK_DATA
    LDA [QV_Tile_L],Y
    PHA
    LDA <Bank_Buf_A000
    STA MMC3_BANK_DATA
    PLA
    RTS

; A = the tile of character A; keeps Y
GetMappingChar:
    .IF CHAR_MODE_OPEN
    STY <QV_Data_Tmp
    TAY
    LDA Char_Mapping_Data,Y
    LDY <QV_Data_Tmp
    .ENDIF
    RTS

;------------------------------------------------------------------------------
; Page indicator "01/13": both numbers as wide as the page count
;------------------------------------------------------------------------------
ShowPageIndex:
    .IF SHOW_PAGE_NUMBER
    LDA #MODE_CNTL
    JSR PushPPUBuffer
    LDA #HIGH(PAGE_INDER_SHOW_POS)
    JSR PushPPUBuffer
    .IF CUSTOM_MENU_ENABLE
    LDA #LOW(PAGE_INDER_SHOW_POS)
    .ELSE
    ; a built-in look keeps the indicator's right end in place
    LDA #LOW(PAGE_INDER_SHOW_POS) - (PAGE_NUMBER_TEXT_LEN - 3) / 2
    .ENDIF
    JSR PushPPUBuffer
    LDA #PAGE_NUMBER_TEXT_LEN
    JSR PushPPUBuffer
    JSR GetPageIndex
    JSR HexToDec
    JSR ShowPageIndexWrite
    LDA #'/'
    JSR GetMappingChar
    JSR PushPPUBuffer
    LDA #LOW(PAGE_MAX_COUNT)
    STA <QV_Word_L
    LDA #HIGH(PAGE_MAX_COUNT)
    STA <QV_Word_H
    JSR HexToDec
    JMP ShowPageIndexWrite
    .ELSE
    RTS
    .ENDIF

    .IF SHOW_PAGE_NUMBER
; QV_Word = number of the current page, from 1
GetPageIndex:
    LDA <Page_Cur_L
    STA <QV_Word_L
    LDA <Page_Cur_H
    STA <QV_Word_H
    LDA #0                      ; remainder
    LDX #16
.Bit:
    ASL <QV_Word_L
    ROL <QV_Word_H
    ROL A
    CMP #PAGE_SIZE
    BCC .Less
    SBC #PAGE_SIZE
    INC <QV_Word_L
.Less:
    DEX
    BNE .Bit
    INC <QV_Word_L
    BNE .Done
    INC <QV_Word_H
.Done:
    RTS

; Digits of QV_Word (below 1000)
HexToDec:
    LDA #0
    STA <Digits_100
    STA <Digits_10
.Hundreds:
    LDA <QV_Word_L
    SEC
    SBC #100
    TAX
    LDA <QV_Word_H
    SBC #0
    BCC .Tens
    STA <QV_Word_H
    STX <QV_Word_L
    INC <Digits_100
    BCS .Hundreds
.Tens:
    LDA <QV_Word_L
.Ten:
    CMP #10
    BCC .Ones
    SBC #10
    INC <Digits_10
    BCS .Ten
.Ones:
    STA <Digits_1
    RTS

ShowPageIndexWrite:
    .IF PAGE_MAX_COUNT >= 100
    LDA <Digits_100
    JSR PutDigit
    .ENDIF
    .IF PAGE_MAX_COUNT >= 10
    LDA <Digits_10
    JSR PutDigit
    .ENDIF
    LDA <Digits_1
PutDigit:
    CLC
    ADC #'0'
    JSR GetMappingChar
    .ENDIF
; Appends A to the command list
PushPPUBuffer:
    LDX QV_PPU_Cursor
    STA QV_PPU_Buffer,X
    INC QV_PPU_Cursor
    RTS

;------------------------------------------------------------------------------
; Caption: the texts of TitleText, once, after start-up
;------------------------------------------------------------------------------
SetTitleText:
    LDA QV_PPU_Cursor           ; room for the longest text
    CMP #QV_PPU_BUFFER_ROOM - TEXT_LEN_MAX - 4 + 1
    BCC .Room
    LDA #1
    JSR NmiDelay
    JMP SetTitleText
.Room:
    LDA #LOW(TitleText)
    STA <QV_Data_L
    LDA #HIGH(TitleText)
    STA <QV_Data_H
.Text:
    LDY #0
    LDA [QV_Data_L],Y
    CMP #MODE_CNTL
    BNE .Done
    INY
    LDA [QV_Data_L],Y
    PHA
    INY
    LDA [QV_Data_L],Y
    TAX
    LDA <QV_Data_L              ; step over the command byte and address
    CLC
    ADC #3
    STA <QV_Data_L
    LDA <QV_Data_H
    ADC <$00
    STA <QV_Data_H
    PLA
    LDY #0
    JSR BeginTextCommand
    LDA <QV_Data_Cnt
    BEQ .Next
    JSR PutText
.Next:
    LDA <QV_Data_L
    CLC
    ADC <QV_Data_Cnt
    STA <QV_Data_L
    LDA <QV_Data_H
    ADC <$00
    STA <QV_Data_H
    JMP .Text
.Done:
    LDA #1
    JMP NmiDelay

;------------------------------------------------------------------------------
; Sprites, all 64 each frame; the custom look rotates where its list starts
; so that more than eight sprites on a line flicker rather than vanish
;------------------------------------------------------------------------------
SpriteSet:
    JSR GetCursorPosY
    .IF CUSTOM_MENU_ENABLE
    LDA #64
    STA <Sprite_Count
    LDX <Sprite_X_Index
    .IF SPRITE_LIST_COUNT
    JSR SetCustomSpriteTile
    .ENDIF
    .IF BIG_CURSOR
    JSR SetBigCursorArrow
    .ELSE
    JSR SetSmallCursorArrow
    .ENDIF
    TXA
    CLC
    ADC #$C4
    STA <Sprite_X_Index
    .ELSE
    LDA <QV_Data_Tmp
    CLC
    ADC #ARROW_Y_OFFSET
    STA SPRITES_ADDR
    LDA #Char_Arrow
    STA SPRITES_ADDR+1
    LDA #0
    STA SPRITES_ADDR+2
    LDA #ARROW_X_OFFSET
    STA SPRITES_ADDR+3
    .ENDIF
    RTS

; QV_Data_Tmp = the selection's row offset in pixels
GetCursorPosY:
    LDA <Sel_Cur_L
    SEC
    SBC <Page_Cur_L
    ASL A
    ASL A
    ASL A
    .IF NAME_INSERT_ROW
    ASL A
    .ENDIF
    STA <QV_Data_Tmp
    RTS

    .IF CUSTOM_MENU_ENABLE
    .IF SPRITE_LIST_COUNT
; Copies the designer's sprites from entry Sprite_List_Index on, wrapping
SetCustomSpriteTile:
    LDA #SPRITE_TILE_BANK & BANK_DATA_MASK
    JSR SwitchBankA000
    LDA #SPRITE_LIST_COUNT
    STA <QV_Data_Cnt
.Entry:
    LDA <Sprite_List_Index
    STA <QV_Data_L
    LDA #0
    STA <QV_Data_H
    ASL <QV_Data_L
    ROL <QV_Data_H
    ASL <QV_Data_L
    ROL <QV_Data_H
    LDA <QV_Data_L
    CLC
    ADC #LOW(SPRITE_TILE_ADDR)
    STA <QV_Data_L
    LDA <QV_Data_H
    ADC #HIGH(SPRITE_TILE_ADDR)
    STA <QV_Data_H
    LDY #0
.Byte:
    LDA [QV_Data_L],Y
    STA SPRITES_ADDR,X
    INX
    INY
    CPY #4
    BNE .Byte
    INC <Sprite_List_Index
    LDA <Sprite_List_Index
    CMP #SPRITE_LIST_COUNT
    BCC .Kept
    LDA #0
    STA <Sprite_List_Index
.Kept:
    DEC <Sprite_Count
    BEQ .Done
    DEC <QV_Data_Cnt
    BNE .Entry
.Done:
    RTS
    .ENDIF

    .IF BIG_CURSOR
; The arrow of up to four sprites; an entry with tile 0 is not used
SetBigCursorArrow:
    LDA #0
    STA <QV_Data_Cnt
    LDY #1
.Count:
    LDA Big_Cursor_Data,Y
    BEQ .Unused
    INC <QV_Data_Cnt
.Unused:
    INY
    INY
    INY
    INY
    CPY #17
    BCC .Count
.Entry:
    LDA <Cursor_List_Index
    CMP <QV_Data_Cnt
    BCS .Done
    LDA <Sprite_Count
    BEQ .Done
    LDA <Cursor_List_Index
    ASL A
    ASL A
    TAY
    LDA Big_Cursor_Data+1,Y
    BNE .Used
    LDA #$F8
    BNE .PutY
.Used:
    LDA Big_Cursor_Data,Y
    CLC
    ADC <QV_Data_Tmp
.PutY:
    STA SPRITES_ADDR,X
    INX
    LDA Big_Cursor_Data+1,Y
    STA SPRITES_ADDR,X
    INX
    LDA Big_Cursor_Data+2,Y
    STA SPRITES_ADDR,X
    INX
    LDA Big_Cursor_Data+3,Y
    STA SPRITES_ADDR,X
    INX
    DEC <Sprite_Count
    INC <Cursor_List_Index
    BNE .Entry
.Done:
    LDA #0
    STA <Cursor_List_Index
    JMP ResetSpriteData
    .ELSE
; The arrow of one sprite
SetSmallCursorArrow:
    LDA <Sprite_Count
    BEQ ResetSpriteData
    LDA #CURSOR_ARROW_Y
    CLC
    ADC <QV_Data_Tmp
    STA SPRITES_ADDR,X
    INX
    LDA #CURSOR_ARROW_TILE
    STA SPRITES_ADDR,X
    INX
    LDA #CURSOR_ARROW_MODE
    STA SPRITES_ADDR,X
    INX
    LDA #CURSOR_ARROW_X
    STA SPRITES_ADDR,X
    INX
    DEC <Sprite_Count
    .ENDIF

; Hides the Sprite_Count sprites left, from X on
ResetSpriteData:
    LDA <Sprite_Count
    BEQ .Done
.Sprite:
    LDA #$F8
    STA SPRITES_ADDR,X
    INX
    LDA #0
    STA SPRITES_ADDR,X
    INX
    STA SPRITES_ADDR,X
    INX
    LDA #$F8
    STA SPRITES_ADDR,X
    INX
    DEC <Sprite_Count
    BNE .Sprite
.Done:
    RTS
    .ENDIF

;------------------------------------------------------------------------------
; Sounds
;------------------------------------------------------------------------------
    .IF MENU_MUSIC >= 2
SelectItemSound:
    LDA #SOUNG_ITEM - 1
    JMP Sound_Init
SelectPageSound:
    LDA #SOUNG_PAGE - 1
    JMP Sound_Init
SelectEnterSound:
    LDA #SOUNG_ENTER - 1
    JMP Sound_Init
    .ENDIF

    .IF MENU_MUSIC = 1
SelectItemSound:
    LDX #ButtonSoundData - EnterSoundData
    BNE PlaySquare1
SelectPageSound:
    LDX #PageSoundData - EnterSoundData
PlaySquare1:
    LDA #3
    STA APU_STATUS
    LDY #0
.Reg:
    LDA EnterSoundData,X
    STA $4000,Y
    INX
    INY
    CPY #4
    BNE .Reg
    RTS
SelectEnterSound:
    LDA #2
    STA APU_STATUS
    LDX #0
.Reg:
    LDA EnterSoundData,X
    STA $4004,X
    INX
    CPX #4
    BNE .Reg
    RTS

EnterSoundData:
    .DB $3F,$9A,$FF,$00
PageSoundData:
    .DB $3F,$9A,$FF,$00
ButtonSoundData:
    .DB $87,$89,$F0,$00
    .ENDIF

    .IF MENU_MUSIC = 0
SelectItemSound:
SelectPageSound:
SelectEnterSound:
    RTS
    .ENDIF

StopSound:
    LDA #0
    LDX #$13
.Reg:
    STA $4000,X
    DEX
    BPL .Reg
    STA APU_STATUS
    RTS

;------------------------------------------------------------------------------
; Starting a game
;------------------------------------------------------------------------------
    .IF FINAL_DATA_ENABLE
    .IF BOARD_TYPE = MULTICATR_TYPE_COOLGIRL
    INCLUDE "coolgirl_final_data.asm"
    .ELSE
    INCLUDE "coolboy_final_data.asm"
    .ENDIF
    .ELSE
    .IF BOARD_TYPE = MULTICATR_TYPE_COOLGIRL
    INCLUDE "coolgirl.asm"
    .ELSE
    INCLUDE "coolboy.asm"
    .ENDIF
    .ENDIF

;------------------------------------------------------------------------------
; Tables of the look
;------------------------------------------------------------------------------
AttributeData:
    .IF CUSTOM_MENU_ENABLE
    INCBIN "build/game_attributes_data.bin"
    .ELSE
    .IF MENU_SHOW_STYLE = 0
    .DB $00,$00,$00,$00,$00,$00,$00,$00
    .DB $55,$55,$55,$55,$55,$55,$55,$55
    .DB $55,$55,$55,$55,$55,$55,$55,$55
    .DB $55,$55,$55,$55,$55,$55,$55,$55
    .DB $55,$55,$55,$55,$55,$55,$55,$55
    .DB $55,$55,$55,$55,$55,$55,$55,$55
    .DB $A5,$A5,$A5,$A5,$A5,$A5,$A5,$A5
    .DB $AA,$AA,$AA,$AA,$AA,$AA,$AA,$AA
    .ELSE
    .DB $55,$55,$AA,$55,$AA,$66,$55,$55
    .DB $00,$00,$00,$00,$00,$00,$00,$00
    .DB $00,$00,$00,$00,$00,$00,$00,$00
    .DB $00,$00,$00,$00,$00,$00,$00,$00
    .DB $00,$00,$00,$00,$00,$00,$00,$00
    .DB $00,$00,$00,$00,$00,$00,$00,$00
    .DB $F0,$F0,$F0,$F0,$F0,$F0,$F0,$F0
    .DB $FF,$FF,$FF,$FF,$FF,$FF,$FF,$FF
    .ENDIF
    .ENDIF

PaletteData:
    .IF CUSTOM_MENU_ENABLE
    INCBIN "build/game_bkg_palette_data.bin"
    INCBIN "build/game_sprite_palette_data.bin"
    .ELSE
    .IF MENU_SHOW_STYLE = 0
    .DB $0F,$24,$23,$23,$0F,$21,$21,$21,$0F,$27,$22,$22,$0F,$22,$22,$22
    .DB $0F,$22,$22,$22,$0F,$24,$24,$24,$0F,$21,$21,$21,$0F,$22,$22,$22
    .ELSE
    .DB $0F,$20,$2A,$2A,$0F,$25,$2C,$2C,$0F,$2A,$27,$27,$0F,$21,$28,$16
    .DB $0F,$20,$2A,$2A,$0F,$27,$2C,$2C,$0F,$2A,$27,$27,$0F,$25,$28,$16
    .ENDIF
    .ENDIF

Char_Mapping_Data:
    INCBIN "build/char_mapping.bin"

; Size mask bits IHGB by game size in 128 KB steps
ROM_Size_Mask:
    .DB %00000011               ; 128 KB
    .DB %00000010               ; 256 KB
    .DB %00000000               ; 512 KB
    .DB %00000000
    .DB %00000100               ; 1024 KB
    .DB %00000000
    .DB %00000000
    .DB %00000000
    .DB %00001100               ; 2048 KB

; PPU address of each row of the list
ItemShowPos:
    .IF NAME_INSERT_ROW
    .DW ITEM_SHOW_POS + $0000, ITEM_SHOW_POS + $0040, ITEM_SHOW_POS + $0080
    .DW ITEM_SHOW_POS + $00C0, ITEM_SHOW_POS + $0100, ITEM_SHOW_POS + $0140
    .DW ITEM_SHOW_POS + $0180, ITEM_SHOW_POS + $01C0, ITEM_SHOW_POS + $0200
    .DW ITEM_SHOW_POS + $0240, ITEM_SHOW_POS + $0280, ITEM_SHOW_POS + $02C0
    .DW ITEM_SHOW_POS + $0300, ITEM_SHOW_POS + $0340, ITEM_SHOW_POS + $0380
    .ELSE
    .DW ITEM_SHOW_POS + $0000, ITEM_SHOW_POS + $0020, ITEM_SHOW_POS + $0040
    .DW ITEM_SHOW_POS + $0060, ITEM_SHOW_POS + $0080, ITEM_SHOW_POS + $00A0
    .DW ITEM_SHOW_POS + $00C0, ITEM_SHOW_POS + $00E0, ITEM_SHOW_POS + $0100
    .DW ITEM_SHOW_POS + $0120, ITEM_SHOW_POS + $0140, ITEM_SHOW_POS + $0160
    .DW ITEM_SHOW_POS + $0180, ITEM_SHOW_POS + $01A0, ITEM_SHOW_POS + $01C0
    .DW ITEM_SHOW_POS + $01E0, ITEM_SHOW_POS + $0200, ITEM_SHOW_POS + $0220
    .DW ITEM_SHOW_POS + $0240, ITEM_SHOW_POS + $0260, ITEM_SHOW_POS + $0280
    .ENDIF

; The caption: MODE_CNTL, address, length-prefixed text, ..., MODE_OVER
TitleText:
    .IF CUSTOM_MENU_ENABLE
    .IF CAPTION_LENGTH
    .DB MODE_CNTL, HIGH(TITLE_SHOW_POS), LOW(TITLE_SHOW_POS)
    INCLUDE "build/game_caption_data.asm"
    .ENDIF
    .ELSE
    .DB MODE_CNTL, HIGH(TITLE_SHOW_POS), LOW(TITLE_SHOW_POS)
    .IF MENU_SHOW_STYLE = 0
    INCLUDE "build/game_title.asm"
    .ELSE
    .STR "PUSH SEL OR START BUTTON"
    .ENDIF
    .ENDIF
    .DB MODE_OVER

Big_Cursor_Data:
    INCBIN "build/game_big_arrow_data.bin"

;==============================================================================
; Fixed top bank: whatever $8000 shows, this code is there
;==============================================================================
    .BANK RESET_BANK & BANK_DATA_MASK
    .ORG RESET_ADDR

SwitchMainBank:
    LDA #PROGRAM_BANK & BANK_DATA_MASK
; A = bank to map at $8000
SwitchBank8000:
    STA <Bank_Buf_8000
    LDA #6
    STA MMC3_BANK_CTRL
    LDA <Bank_Buf_8000
    STA MMC3_BANK_DATA
    RTS

; A = bank to map at $A000
SwitchBankA000:
    STA <Bank_Buf_A000
    LDA #7
    STA MMC3_BANK_CTRL
    LDA <Bank_Buf_A000
    STA MMC3_BANK_DATA
    RTS

Sund_Bank_Init:
    LDA #SOUND_DATA_BANK_0 & BANK_DATA_MASK
    STA <Music_Bank_8000
    LDA #SOUND_DATA_BANK_1 & BANK_DATA_MASK
    STA <Music_Bank_A000
    RTS

    .IF MENU_MUSIC >= 2
Sund_Bank_Set:
    LDA <Music_Bank_8000
    JSR SwitchBank8000
    LDA <Music_Bank_A000
    JMP SwitchBankA000

; A = track, from 0
Sound_Init:
    PHA
    JSR Sund_Bank_Set
    PLA
    JSR Sound_Init_Src
    JMP SwitchMainBank

Sound_Play:
    JSR Sund_Bank_Set
    JSR Sound_Play_Src
    JMP SwitchMainBank
    .ENDIF

MainLoop:
    .IF NMI_MODE
    JMP MainLoop
    .ELSE
    ; polled frames: wait for the blank, then run the frame as a subroutine
    BIT PPU_STATUS
.Blank:
    BIT PPU_STATUS
    BPL .Blank
    JSR NmiProgram
    JMP MainLoop
    .ENDIF

NmiProgram:
    PHA
    TXA
    PHA
    TYA
    PHA
    LDA PPU_STATUS
    JSR SwitchMainBank
    JSR NmiProgramProcess
    .IF MENU_MUSIC >= 2
    JSR Sound_Play
    .ENDIF
    PLA
    TAY
    PLA
    TAX
    PLA
    .IF NMI_MODE
    RTI
    .ELSE
    RTS
    .ENDIF

IrqProgram:
    RTI

; Board registers after a reset: the menu sees itself at the top of the
; first 512 KB of flash, MENU_PRG_SIZE * 16 KB large
MenuSizeData:
    .IF BOARD_TYPE = MULTICATR_TYPE_COOLGIRL
    .DB 0, 0, %01111000, 0, 0, 0, %00010100, %00000111
MENU_SIZE_DATA_LEN = 8
    .ELSE
    .IF MENU_PRG_SIZE = 8
    .DB %11000011, %10000000, 0, 0
    .ENDIF
    .IF MENU_PRG_SIZE = 16
    .DB %10000010, %10000000, 0, 0
    .ENDIF
    .IF MENU_PRG_SIZE = 32
    .DB %10000000, 0, 0, 0
    .ENDIF
MENU_SIZE_DATA_LEN = 4
    .ENDIF

ResetProgram:
    SEI
    CLD
    LDA #0
    STA PPU_CTRL
    STA PPU_STATUS
    STA PPU_MASK
    STA APU_STATUS
    STA PPU_SCROLL
    STA PPU_SCROLL
    LDA #$C0                    ; no frame IRQ
    STA JOY2_FRAME
    LDX #0
.Reg:
    LDA MenuSizeData,X
    STA GAME_REG_0,X
    INX
    CPX #MENU_SIZE_DATA_LEN
    BNE .Reg
    LDX #$FF
    TXS
    JSR SwitchMainBank
    JMP ProgramBegin

    .ORG $FFFA
    .DW NmiProgram
    .DW ResetProgram
    .DW IrqProgram
