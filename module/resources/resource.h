// Ids of the controls of every dialog, the one place that names them. Read by the resource compiler
// (plain macros) and by module code; an id is also the id of the control's caption in the string
// table unless strings/ says else.
#pragma once

// Texts that nobody refers to.
#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif

// Every page and dialog.
#define IDC_DEFAULTS     12
#define IDC_NOTICE_TEXT  1490
#define IDC_NOTICE_ICON  1491
#define IDC_PAGE_PICTURE 20001

// Basic page (TAB0R).
#define IDC_STATIC_UNUSED         1100
#define IDC_ST_PAPER_SOURCE       1110
#define IDC_COMBO_PAPER_SOURCE    1111
#define IDC_ST_MEDIA_TYPE         1140
#define IDC_COMBO_MEDIA_TYPE      1141
#define IDC_CHK_FIRST_PAGE_SOURCE 1170
#define IDC_BTN_FIRST_PAGE        1172
#define IDC_GRP_OUTPUT_SETTING    1200
#define IDC_BTN_OUTPUT_SETTING    1240
#define IDC_PAPER_MARKER          1492
#define IDC_RADIO_SCALING_AUTO    1787
#define IDC_RADIO_SCALING_MANUAL  1788
#define IDC_ST_PAPER_SIZE         2001
#define IDC_COMBO_PAPER_SIZE      2002
#define IDC_BTN_CUSTOM_PAPER      2003
#define IDC_ST_OUT_PAPER          2004
#define IDC_CHK_OUT_PAPER         2005
#define IDC_COMBO_OUT_PAPER       2006
#define IDC_CHK_FIT_TO_PAPER      2007
#define IDC_GRP_SCALING           2008
#define IDC_EDIT_SCALING          2009
#define IDC_SPIN_SCALING          2010
#define IDC_ST_SCALING_UNIT       2011
#define IDC_ST_SCALING_RANGE      2012
#define IDC_GRP_COPIES            2013
#define IDC_EDIT_COPIES           2014
#define IDC_SPIN_COPIES           2015
#define IDC_ST_COPIES             2016
#define IDC_PIC_COLLATE           2018
#define IDC_RADIO_COLLATE_ON      2019
#define IDC_RADIO_COLLATE_OFF     2020
#define IDC_GRP_ORIENTATION       2024
#define IDC_PIC_ORIENTATION       2025
#define IDC_RADIO_PORTRAIT        2026
#define IDC_RADIO_LANDSCAPE       2027
#define IDC_ST_COPIES_RANGE       2028
#define IDC_CHK_TRANSMIT_ONCE     2030
#define IDC_CHK_ALL_PAPER_SIZE    2031
#define IDC_CHK_COLLATE           2034

// First page (_LBPFIRSTPAGE) and paper source details (_DLGTAB00).
#define IDC_ST_FIRST_PAGE_SOURCE      1171
#define IDC_COMBO_FIRST_PAGE_SOURCE   1173
#define IDC_ST_FIRST_PAGE_MEDIA       1175
#define IDC_COMBO_FIRST_PAGE_MEDIA    1176
#define IDC_GRP_COVER_PAGE            1181
#define IDC_CHK_FRONT_COVER           1182
#define IDC_CHK_FRONT_WITH_IMAGE      1183
#define IDC_CHK_BACK_COVER            1184
#define IDC_CHK_BACK_WITH_IMAGE       1185
#define IDC_ST_COVER_SOURCE           1186
#define IDC_COMBO_COVER_SOURCE        1187
#define IDC_GRP_INTERLEAVE            1188
#define IDC_CHK_INTERLEAVING          1189
#define IDC_CHK_INTERLEAVE_WITH_IMAGE 1190
#define IDC_ST_INTERLEAVE_SOURCE      1191
#define IDC_COMBO_INTERLEAVE_SOURCE   1192

// Layout page (TAB1R).
#define IDC_ST_NUP          1400
#define IDC_ST_POSTER       1404
#define IDC_COMBO_POSTER    1405
#define IDC_COMBO_NUP       1410
#define IDC_BTN_NUP_DETAILS 1430
#define IDC_ST_DUPLEX       1500
#define IDC_COMBO_DUPLEX    1510
#define IDC_PIC_DUPLEX      1520
#define IDC_CHK_GUIDE_PAPER 1521
#define IDC_GRP_IMAGE_SHIFT 1900
#define IDC_CHK_IMAGE_SHIFT 1901
#define IDC_BTN_IMAGE_SHIFT 1912
#define IDC_GRP_SORTING     2021
#define IDC_CHK_PROOF_PRINT 2029
#define IDC_CHK_ROTATE      2032

// Pages-per-sheet details (_DLGCOMBINATION) and style (_DLGTAB02).
#define IDC_ST_ORDER           1401
#define IDC_COMBO_ORDER        1418
#define IDC_COMBO_BOOKLET      1419
#define IDC_CHK_NUP_BORDER     1420
#define IDC_COMBO_ORDER_DOWN   1421
#define IDC_COMBO_ORDER_ACROSS 1422
#define IDC_GRP_NUP_STYLE      1460
#define IDC_RADIO_STYLE_1      1461
#define IDC_RADIO_STYLE_2      1462
#define IDC_RADIO_STYLE_3      1463
#define IDC_RADIO_STYLE_4      1464
#define IDC_PIC_STYLE_1        1465
#define IDC_PIC_STYLE_2        1466
#define IDC_PIC_STYLE_3        1467
#define IDC_PIC_STYLE_4        1468

// Output details (_DLGTAB01).
#define IDC_GRP_STAPLE        1301
#define IDC_PIC_STAPLE        1302
#define IDC_COMBO_STAPLE      1303
#define IDC_GRP_PUNCH         1304
#define IDC_PIC_PUNCH         1305
#define IDC_COMBO_PUNCH       1306
#define IDC_ST_PUNCH_NUM      1307
#define IDC_COMBO_PUNCH_NUM   1308
#define IDC_ST_PUNCH_NUM_UNIT 1309
#define IDC_GRP_FOLDING       1310
#define IDC_PIC_FOLDING       1311
#define IDC_COMBO_FOLDING     1312

// Image shift (_LBPIMAGESHIFT).
#define IDC_EDIT_OFFSET_X     1902
#define IDC_SPIN_OFFSET_X     1903
#define IDC_ST_OFFSET_X       1904
#define IDC_ST_OFFSET_X_RANGE 1905
#define IDC_ST_OFFSET_X_UNIT  1906
#define IDC_EDIT_OFFSET_Y     1907
#define IDC_SPIN_OFFSET_Y     1908
#define IDC_ST_OFFSET_Y       1909
#define IDC_ST_OFFSET_Y_RANGE 1910
#define IDC_ST_OFFSET_Y_UNIT  1911
#define IDC_RADIO_SHIFT_INCH  9933
#define IDC_RADIO_SHIFT_MM    9934

// Overlay page (TABOVERLAY) and editor (_LBPEDITOVERLAY).
#define IDC_ST_OVERLAY             1850
#define IDC_ST_OVERLAY_PAGES       1851
#define IDC_CHK_OVERLAY_FIRST_PAGE 1880
#define IDC_COMBO_OVERLAY_PAGES    1881
#define IDC_BTN_OVERLAY_BROWSE     1890
#define IDC_LIST_OVERLAY           1891
#define IDC_BTN_OVERLAY_EDIT       1892
#define IDC_BTN_OVERLAY_ADD        1893
#define IDC_BTN_OVERLAY_DELETE     1894
#define IDC_GRP_OVERLAY_EDIT       9811
#define IDC_ST_OVERLAY_NAME        9812
#define IDC_EDIT_OVERLAY_NAME      9813
#define IDC_ST_OVERLAY_FILE        9814
#define IDC_EDIT_OVERLAY_FILE      9815

// Watermark page (TABWM) and editor (_LBPQUARNWATERCOLOR).
#define IDC_ST_WATERMARK             8001
#define IDC_LIST_WATERMARK           8002
#define IDC_CHK_WATERMARK_FIRST_PAGE 8003
#define IDC_CHK_WATERMARK_BACKGROUND 8004
#define IDC_BTN_WATERMARK_EDIT       8005
#define IDC_BTN_WATERMARK_ADD        8006
#define IDC_BTN_WATERMARK_DELETE     8007
#define IDC_CHK_WATERMARK_REPEAT     20062
#define IDC_ST_WM_NAME               9707
#define IDC_EDIT_WM_NAME             9708
#define IDC_ST_WM_TEXT               9709
#define IDC_EDIT_WM_TEXT             9710
#define IDC_GRP_WM_FONT              9732
#define IDC_ST_WM_FACE               9733
#define IDC_COMBO_WM_FACE            9734
#define IDC_ST_WM_SIZE               9735
#define IDC_EDIT_WM_SIZE             9736
#define IDC_SPIN_WM_SIZE             9737
#define IDC_ST_WM_SIZE_UNIT          9738
#define IDC_ST_WM_ANGLE              9739
#define IDC_EDIT_WM_ANGLE            9740
#define IDC_SPIN_WM_ANGLE            9741
#define IDC_ST_WM_ANGLE_RANGE        9743
#define IDC_GRP_WM_POSITION          9744
#define IDC_ST_WM_POSITION_X         9745
#define IDC_EDIT_WM_POSITION_X       9746
#define IDC_SPIN_WM_POSITION_X       9747
#define IDC_ST_WM_POSITION_Y         9748
#define IDC_EDIT_WM_POSITION_Y       9749
#define IDC_SPIN_WM_POSITION_Y       9750
#define IDC_PIC_WM_FRAME             9751
#define IDC_PIC_WM_PAPER             9752
#define IDC_ST_WM_STYLE              9755
#define IDC_ST_WM_COLOR              9756
#define IDC_COMBO_WM_STYLE           9757
#define IDC_COMBO_WM_COLOR           9758
#define IDC_BTN_WM_CENTER            9759
#define IDC_GRP_WM_SHARING           9760
#define IDC_RADIO_WM_SHARED          9761
#define IDC_RADIO_WM_OWN             9762
#define IDC_SLD_WM_POSITION_X        9780
#define IDC_SLD_WM_POSITION_Y        9781

// Quality page (TAB2R) and its list (_DLGTAB20).
#define IDC_SPIN_CONTRAST        1068
#define IDC_SPIN_BRIGHTNESS      1069
#define IDC_SPIN_SATURATION      1070
#define IDC_SPIN_SHARPNESS       1071
#define IDC_GRP_RESOLUTION       3001
#define IDC_PIC_RESOLUTION       3002
#define IDC_COMBO_RESOLUTION     3003
#define IDC_GRP_ADJUSTMENT       3006
#define IDC_ST_CONTRAST          3007
#define IDC_SLD_CONTRAST         3008
#define IDC_EDIT_CONTRAST        3009
#define IDC_ST_BRIGHTNESS        3010
#define IDC_SLD_BRIGHTNESS       3011
#define IDC_EDIT_BRIGHTNESS      3012
#define IDC_ST_CONTRAST_MIN      3020
#define IDC_ST_CONTRAST_MAX      3021
#define IDC_ST_BRIGHTNESS_MIN    3022
#define IDC_ST_BRIGHTNESS_MAX    3023
#define IDC_GRP_COLOR_MODE       3201
#define IDC_RADIO_GRAYSCALE      3202
#define IDC_RADIO_COLOR          3203
#define IDC_GRP_COLOR_MATCHING   3204
#define IDC_RADIO_MATCHING_OFF   3205
#define IDC_RADIO_MATCHING_ON    3206
#define IDC_GRP_COMPRESS         3207
#define IDC_ST_SATURATION        3209
#define IDC_SLD_SATURATION       3210
#define IDC_EDIT_SATURATION      3211
#define IDC_ST_SATURATION_MIN    3212
#define IDC_ST_SATURATION_MAX    3213
#define IDC_ST_SHARPNESS         3214
#define IDC_SLD_SHARPNESS        3215
#define IDC_EDIT_SHARPNESS       3216
#define IDC_ST_SHARPNESS_MIN     3217
#define IDC_ST_SHARPNESS_MAX     3218
#define IDC_GRP_GLOSSY_BLACK     3226
#define IDC_CHK_GLOSSY_TEXT      3227
#define IDC_CHK_GLOSSY_GRAPHICS  3228
#define IDC_CHK_GLOSSY_PHOTO     3229
#define IDC_CHK_LINE_ART         3235
#define IDC_ST_MATCH_PHOTO       3243
#define IDC_ST_MATCH_GRAPHICS    3244
#define IDC_ST_MATCH_TEXT        3245
#define IDC_COMBO_MATCH_PHOTO    3246
#define IDC_COMBO_MATCH_GRAPHICS 3247
#define IDC_COMBO_MATCH_TEXT     3248
#define IDC_LIST_TAB20           3801

// Device Options page (TAB3) and mailbox settings (_MAILBOXR).
#define IDC_GRP_OPTION            4001
#define IDC_ST_INSTALLABLE        4002
#define IDC_LIST_INSTALLABLE      4003
#define IDC_BTN_ADD               4004
#define IDC_BTN_REMOVE            4005
#define IDC_ST_INSTALLED          4006
#define IDC_LIST_INSTALLED        4007
#define IDC_BTN_MAILBOX           4008
#define IDC_GRP_USER_NAME         4009
#define IDC_EDIT_USER_NAME        4010
#define IDC_BTN_ABOUT             4011
#define IDC_CHK_AUTO_CONFIG       4012
#define IDC_ST_INSTALLED_STATE    4013
#define IDC_COMBO_INSTALLED_STATE 4014
#define IDC_LIST_OPTIONS          4015
#define IDC_ST_MAILBOX_OPTION     4201
#define IDC_PIC_MAILBOX           4202
#define IDC_ST_MAILBOX_NAME       4203
#define IDC_EDIT_MAILBOX_NAME     4204
#define IDC_BTN_MAILBOX_APPLY     4205
#define IDC_LIST_MAILBOX          4206
#define IDC_ST_MAILBOX_ASSIGN     4207
#define IDC_COMBO_MAILBOX_ASSIGN  4208

// Troubleshooting page (TABVERSION) and about box (_ABOUTKVI).
#define IDC_ST_PRODUCT_NAME      4101
#define IDC_ST_VERSION           4102
#define IDC_ST_COPYRIGHT_BRANNIC 4103
#define IDC_ST_COPYRIGHT_ORVI    4104
#define IDC_PIC_LOGO             4106
#define IDC_GRP_LINKS            20023
#define IDC_URL_TECH             20024
#define IDC_URL_COLOR            20025
#define IDC_URL_ORDER            20026
#define IDC_URL_REGISTER         20027
#define IDC_URL_DOC              20028
#define IDC_URL_STATUS           20029
#define IDC_ST_BOTTOM_LINE       20051

// Job Management page (TAB4).
#define IDC_GRP_SECURITY            5001
#define IDC_CHK_ACCESS_CODE         5002
#define IDC_ST_ACCESS_CODE          5003
#define IDC_EDIT_ACCESS_NUMBER      5004
#define IDC_CHK_LOCK_JOB            5005
#define IDC_ST_PASSWORD             5006
#define IDC_EDIT_PASSWORD           5007
#define IDC_GRP_DISTRIBUTION        5008
#define IDC_CHK_DISTRIBUTION        5009
#define IDC_CHK_DISTRIBUTION_FIRST  5010
#define IDC_ST_DENSITY              5011
#define IDC_COMBO_DENSITY           5012
#define IDC_ST_DISTRIBUTION_START   5013
#define IDC_EDIT_DISTRIBUTION_START 5014
#define IDC_SPIN_DISTRIBUTION_START 5015

// Preview panel (DLGCOMMONVIEW) and saved settings (DLGEASYSET, DLGSAVEEASYSET, DLGEDITEASYSET).
#define IDC_PIC_SUB_VIEW      14001
#define IDC_PIC_MAIN_VIEW     14002
#define IDC_BTN_CHANGE_VIEW   14003
#define IDC_STRIP_1           9501
#define IDC_STRIP_2           9502
#define IDC_STRIP_3           9503
#define IDC_STRIP_4           9504
#define IDC_STRIP_5           9505
#define IDC_STRIP_6           9506
#define IDC_COMBO_EASY_SET    9507
#define IDC_ST_EASY_SET       15001
#define IDC_BTN_EASY_SET_SAVE 15002
#define IDC_BTN_EASY_SET_EDIT 15003
#define IDC_EDIT_SET_NAME     15011
#define IDC_EDIT_SET_COMMENT  15012
#define IDC_LIST_SETS         15013
#define IDC_PIC_SET_NOTICE    15014
#define IDC_EDIT_SET_NOTICE   15015
#define IDC_ST_SET_NAME       15021
#define IDC_ST_SET_COMMENT    15022
#define IDC_ST_SETS           15023
#define IDC_BTN_SET_UP        15024
#define IDC_BTN_SET_DOWN      15025
#define IDC_BTN_SET_DELETE    15026
#define IDC_GRP_SET_RESTORE   15027
#define IDC_CHK_SET_SIZE      15028
#define IDC_CHK_SET_COPIES    15029

// Conflicts (_CONFLICTS, _OPTIONCONFLICT).
#define IDC_ST_CONFLICT_INTRO    9401
#define IDC_ST_CONFLICT_ITEM     9402
#define IDC_ST_CONFLICT_CURRENT  9403
#define IDC_ST_CONFLICT_RESOLVE  9404
#define IDC_ST_CONFLICT_CANCEL   9405
#define IDC_ST_CONFLICT_NEW_ITEM 9406
#define IDC_ST_CONFLICT_NEW      9407
#define IDC_GRP_CONFLICT_CURRENT 9408
#define IDC_GRP_CONFLICT_NEW     9409
#define IDC_ST_TRIGGER_NAME      9410
#define IDC_ST_TRIGGER_SELECTION 9411
#define IDC_ST_TARGET_NAME       9412
#define IDC_ST_TARGET_SELECTION  9413
#define IDC_ST_NEW_NAME          9414
#define IDC_ST_NEW_SELECTION     9415
#define IDC_BTN_CONFLICT_RESOLVE 9416
#define IDC_ST_OPTION_INTRO      9451
#define IDC_ST_OPTION_CURRENT    9452
#define IDC_LIST_OPTION_CURRENT  9453
#define IDC_ST_OPTION_RESOLVE    9454
#define IDC_ST_OPTION_CANCEL     9455
#define IDC_ST_OPTION_NEW        9456
#define IDC_LIST_OPTION_NEW      9457
#define IDC_BTN_OPTION_RESOLVE   9458

// Custom papers (_LBPCUSTOMPAPERS) and paper editor (_LBPEDITPAPER).
#define IDC_ST_PAPERS                  9602
#define IDC_LIST_PAPERS                9603
#define IDC_BTN_PAPER_NEW              9604
#define IDC_BTN_PAPER_DELETE           9605
#define IDC_BTN_PAPER_EDIT             9606
#define IDC_ST_PAPER_NAME              9611
#define IDC_EDIT_PAPER_NAME            9612
#define IDC_ST_PAPER_WIDTH             9613
#define IDC_EDIT_PAPER_WIDTH           9614
#define IDC_SPIN_PAPER_WIDTH           9615
#define IDC_ST_PAPER_HEIGHT            9616
#define IDC_EDIT_PAPER_HEIGHT          9617
#define IDC_SPIN_PAPER_HEIGHT          9618
#define IDC_RADIO_PAPER_INCH           9619
#define IDC_RADIO_PAPER_MM             9620
#define IDC_ST_PAPER_HEIGHT_INCH_RANGE 9621
#define IDC_GRP_PAPER_SIZE             9622
#define IDC_GRP_PAPER_UNIT             9623
#define IDC_ST_PAPER_WIDTH_INCH_RANGE  9624
#define IDC_EDIT_PAPER_WIDTH_16        9625
#define IDC_SPIN_PAPER_WIDTH_16        9626
#define IDC_EDIT_PAPER_HEIGHT_16       9627
#define IDC_SPIN_PAPER_HEIGHT_16       9628
#define IDC_ST_PAPER_WIDTH_16          9629
#define IDC_ST_PAPER_HEIGHT_16         9630
#define IDC_ST_PAPER_WIDTH_MM_RANGE    9631
#define IDC_ST_PAPER_HEIGHT_MM_RANGE   9632

// Code records (_DLGEDIT0).
#define IDC_LIST_RECORDS            9101
#define IDC_BTN_RECORD_NEW          9102
#define IDC_BTN_RECORD_DELETE       9103
#define IDC_BTN_RECORD_EDIT         9104
#define IDC_BTN_PAPER_RECORD_ADD    9105
#define IDC_BTN_PAPER_RECORD_REMOVE 9106
#define IDC_BTN_RECORDS_CLOSE       9107
#define IDC_BTN_RECORDS_SAVE        9108
#define IDC_EDIT_RECORD_1           1665
#define IDC_EDIT_RECORD_2           1675
#define IDC_EDIT_RECORD_3           1695
#define IDC_EDIT_RECORD_4           1705
#define IDC_EDIT_RECORD_5           1715
#define IDC_EDIT_RECORD_6           1716
#define IDC_EDIT_RECORD_7           1725
#define IDC_EDIT_RECORD_8           1740
#define IDC_EDIT_RECORD_9           1755
#define IDC_EDIT_RECORD_10          1765
#define IDC_EDIT_RECORD_11          1766
#define IDC_EDIT_RECORD_12          1775
#define IDC_EDIT_RECORD_13          1785

// Hidden settings (_ADVANCEDSETTINGS); a slider's value is the static of the next id.
#define IDC_SLD_DOT_GAIN           4301
#define IDC_SLD_GCR                4303
#define IDC_SLD_BG                 4305
#define IDC_SLD_DPL                4307
#define IDC_SLD_DIFFUSION_NOISE    4309
#define IDC_SLD_GRAY_LIGHTNESS     4311
#define IDC_SLD_HUE_LIGHTNESS      4313
#define IDC_SLD_HIGH_CUTOFF        4315
#define IDC_SLD_LOW_CUTOFF         4317
#define IDC_SLD_NUP                4319
#define IDC_SLD_NUP_MODE           4321
#define IDC_SLD_DRIVER_PAPER       4323
#define IDC_SLD_DEVICE_DATA_1      4325
#define IDC_SLD_DEVICE_DATA_2      4327
#define IDC_SLD_UNSHARP_MASK       4329
#define IDC_ST_DOT_GAIN            4331
#define IDC_CHK_COMPRESSION        4332
#define IDC_CHK_ANTI_ALIASING      4333
#define IDC_CHK_COLOR_MATCHING     4334
#define IDC_CHK_MIRROR             4335
#define IDC_CHK_COLORS_TO_PATTERNS 4336
#define IDC_CHK_ENHANCE_CONTRAST   4337
#define IDC_CHK_ENHANCE_LIGHTNESS  4338
#define IDC_BTN_HUES               4339
#define IDC_BTN_FACTORY_DEFAULT    4340

// Hue correction (_HUECORRECTION); ids of 700 to 733 are the colour dialog's own.
#define IDC_COLOR_HUE            703
#define IDC_COLOR_SATURATION     704
#define IDC_COLOR_LUMINANCE      705
#define IDC_COLOR_RED            706
#define IDC_COLOR_GREEN          707
#define IDC_COLOR_BLUE           708
#define IDC_COLOR_CURRENT        709
#define IDC_COLOR_RAINBOW        710
#define IDC_COLOR_ADD            712
#define IDC_COLOR_LUMINANCE_BAR  702
#define IDC_COLOR_MIX            719
#define IDC_COLOR_BASIC          720
#define IDC_COLOR_CUSTOM         721
#define IDC_ST_COLOR_HUE         723
#define IDC_ST_COLOR_SATURATION  724
#define IDC_ST_COLOR_LUMINANCE   725
#define IDC_ST_COLOR_RED         726
#define IDC_ST_COLOR_GREEN       727
#define IDC_ST_COLOR_BLUE        728
#define IDC_ST_COLOR_SOLID_LEFT  730
#define IDC_ST_COLOR_SOLID_RIGHT 731
#define IDC_RADIO_HUE_RED        4402
#define IDC_RADIO_HUE_YELLOW     4403
#define IDC_RADIO_HUE_GREEN      4404
#define IDC_RADIO_HUE_CYAN       4405
#define IDC_RADIO_HUE_BLUE       4406
#define IDC_RADIO_HUE_MAGENTA    4407
#define IDC_HUE_SCREEN_RED       4412
#define IDC_HUE_SCREEN_YELLOW    4413
#define IDC_HUE_SCREEN_GREEN     4414
#define IDC_HUE_SCREEN_CYAN      4415
#define IDC_HUE_SCREEN_BLUE      4416
#define IDC_HUE_SCREEN_MAGENTA   4417
#define IDC_HUE_PRINTER_RED      4422
#define IDC_HUE_PRINTER_YELLOW   4423
#define IDC_HUE_PRINTER_GREEN    4424
#define IDC_HUE_PRINTER_CYAN     4425
#define IDC_HUE_PRINTER_BLUE     4426
#define IDC_HUE_PRINTER_MAGENTA  4427
#define IDC_BTN_HUE_DEFAULTS     4430

// Naming dialogs (_DLGKEEPSETTINGADD, _DLGSAVEDATA).
#define IDC_ST_KEEP_NAME   9301
#define IDC_EDIT_KEEP_NAME 9302
#define IDC_ST_DATA_NAME   9201
#define IDC_EDIT_DATA_NAME 9202

// Settings whose control no dialog of this model shows; code and other models' dialogs know them.
#define IDC_COMBO_OUTPUT_SETTING 1210
#define IDC_LIST_OUTPUT_SETTING 1220
#define IDC_OUTPUT_SETTING_OTHER 1230
#define IDC_COMBO_SORTING 2023
#define IDC_COMBO_HALFTONE 3005
#define IDC_COMBO_COMPRESS_METHOD 3208

// Controls that no template holds, but the catalogue, the help table or the rules name.
#define IDC_PIC_SORTING        2022
#define IDC_PIC_COLOR_MODE     3014
#define IDC_PIC_COLOR_MATCHING 3027
#define IDC_BTN_WM_LIST_NEW    9703
#define IDC_BTN_WM_LIST_DELETE 9704
#define IDC_BTN_WM_LIST_EDIT   9705
