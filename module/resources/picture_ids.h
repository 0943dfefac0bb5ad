// Ids of icons and bitmaps. Read by the resource compiler, by module code and by the program that
// draws the pictures at build time. Icons and bitmaps have id spaces of their own.
#pragma once

// Icons: notices.
#define IDI_NOTICE           1491
#define IDI_INFORMATION_NOTE 15014

// Icons: orientation, collation and sorting.
#define IDI_LANDSCAPE   1691
#define IDI_PORTRAIT    1692
#define IDI_COLLATE_OFF 1693
#define IDI_COLLATE_ON  1694
#define IDI_SORT_OFF    1695
#define IDI_SORT_ON     1696

// Icons: pages per sheet, order, booklet and two-sided printing.
#define IDI_NUP_1               1411
#define IDI_NUP_2               1412
#define IDI_NUP_4               1413
#define IDI_NUP_6               1414
#define IDI_NUP_9               1415
#define IDI_NUP_16              1416
#define IDI_NUP_BOOKLET         1417
#define IDI_POSTER_2X2          1424
#define IDI_POSTER_3X3          1425
#define IDI_POSTER_4X4          1426
#define IDI_POSTER_5X5          1427
#define IDI_ORDER_ACROSS_LEFT   1431
#define IDI_ORDER_DOWN_LEFT     1432
#define IDI_ORDER_ACROSS_RIGHT  1433
#define IDI_ORDER_DOWN_RIGHT    1434
#define IDI_ORDER_LEFT_TO_RIGHT 1435
#define IDI_ORDER_RIGHT_TO_LEFT 1436
#define IDI_ORDER_TOP_TO_BOTTOM 1437
#define IDI_DUPLEX_OFF          1501
#define IDI_DUPLEX_SHORT_EDGE   1502
#define IDI_DUPLEX_LONG_EDGE    1503
#define IDI_BOOKLET_LEFT        1504
#define IDI_BOOKLET_RIGHT       1505

// Icons: resolution.
#define IDI_RESOLUTION_600  1630
#define IDI_RESOLUTION_1200 1631
#define IDI_RESOLUTION_2400 1632

// Icons: staple, punch (edge and number of holes) and fold.
#define IDI_STAPLE_OFF        1650
#define IDI_STAPLE_CORNER     1651
#define IDI_STAPLE_LONG_EDGE  1652
#define IDI_STAPLE_SHORT_EDGE 1653
#define IDI_PUNCH_OFF         1660
#define IDI_PUNCH_LONG_2      1661
#define IDI_PUNCH_LONG_3      1662
#define IDI_PUNCH_LONG_4      1663
#define IDI_PUNCH_SHORT_2     1664
#define IDI_PUNCH_SHORT_3     1665
#define IDI_PUNCH_SHORT_4     1666
#define IDI_PUNCH_RIGHT_2     1667
#define IDI_PUNCH_RIGHT_3     1668
#define IDI_PUNCH_RIGHT_4     1669
#define IDI_FOLD_OFF          1670
#define IDI_FOLD_Z            1671
#define IDI_FOLD_Z_A4         1672
#define IDI_FOLD_Z_B5         1673
#define IDI_FOLD_HALF         1674
#define IDI_FOLD_CREASE       1675

// Bitmaps of dialogs: page orders, and the marker beside the paper size with its mask.
#define IDB_STYLE_ACROSS_LEFT  1469
#define IDB_STYLE_ACROSS_RIGHT 1470
#define IDB_STYLE_DOWN_LEFT    1471
#define IDB_STYLE_DOWN_RIGHT   1472
#define IDB_PAPER_MARKER       13853
#define IDB_PAPER_MARKER_MASK  13854

// Bitmaps of the preview. A mask has the number that follows its picture's.
#define IDB_VIEW_TILE 13101

// The colour test picture of the quality view.
#define IDB_SAMPLE_COLOR 13201

// Page numbers, shown at the corners of the sheet.
#define IDB_NUMBER_1  13401
#define IDB_NUMBER_2  13403
#define IDB_NUMBER_3  13405
#define IDB_NUMBER_4  13407
#define IDB_NUMBER_5  13409
#define IDB_NUMBER_6  13411
#define IDB_NUMBER_7  13413
#define IDB_NUMBER_9  13417
#define IDB_NUMBER_13 13425
#define IDB_NUMBER_16 13431

#define IDB_OVERLAY_LANDSCAPE 13451
#define IDB_OVERLAY_PORTRAIT  13452

// Bars along the binding edge, and arrows that turn the page away from it: the sheet's shape, then
// the edge that binds.
#define IDB_BAR_LANDSCAPE_TOP   13501
#define IDB_BAR_PORTRAIT_LEFT   13506
#define IDB_BAR_PORTRAIT_TOP    13511
#define IDB_BAR_LANDSCAPE_LEFT  13516
#define IDB_TURN_LANDSCAPE_TOP  13705
#define IDB_TURN_LANDSCAPE_LEFT 13709
#define IDB_TURN_PORTRAIT_TOP   13713
#define IDB_TURN_PORTRAIT_LEFT  13717

// Border of the page and of its cells: the document's orientation, then the pages per sheet. The
// shape of the sheet follows from both.
#define IDB_GRID_LANDSCAPE_16 13601
#define IDB_GRID_PORTRAIT_16  13602
#define IDB_FRAME_LANDSCAPE   13603
#define IDB_FRAME_PORTRAIT    13604
#define IDB_GRID_PORTRAIT_2   13605
#define IDB_GRID_LANDSCAPE_2  13606
#define IDB_GRID_LANDSCAPE_4  13607
#define IDB_GRID_PORTRAIT_4   13608
#define IDB_GRID_PORTRAIT_6   13609
#define IDB_GRID_LANDSCAPE_6  13610
#define IDB_GRID_LANDSCAPE_9  13611
#define IDB_GRID_PORTRAIT_9   13612

// Printed pages in black and white: the document's orientation, then the pages per sheet.
#define IDB_PAGE_LANDSCAPE_16 13801
#define IDB_PAGE_PORTRAIT_16  13804
#define IDB_PAGE_LANDSCAPE_1  13807
#define IDB_PAGE_PORTRAIT_1   13810
#define IDB_PAGE_PORTRAIT_2   13813
#define IDB_PAGE_LANDSCAPE_2  13816
#define IDB_PAGE_LANDSCAPE_4  13819
#define IDB_PAGE_PORTRAIT_4   13822
#define IDB_PAGE_PORTRAIT_6   13825
#define IDB_PAGE_LANDSCAPE_6  13828
#define IDB_PAGE_LANDSCAPE_9  13831
#define IDB_PAGE_PORTRAIT_9   13834
// Added to a printed page's number for its colour picture.
#define IDB_PAGE_COLOR_STEP 100

// Sheets of paper: booklets (the document's orientation and the binding) and single sheets.
#define IDB_BOOKLET_LANDSCAPE_RIGHT 13837
#define IDB_BOOKLET_PORTRAIT_LEFT   13839
#define IDB_BOOKLET_PORTRAIT_RIGHT  13841
#define IDB_BOOKLET_LANDSCAPE_LEFT  13843
#define IDB_SHEET_LANDSCAPE         13845
#define IDB_SHEET_PORTRAIT          13847
#define IDB_OUTPUT_SIZE_ARROW       13849
// Single sheets of posters of 2x2 to 5x5 sheets: for each the landscape sheet with its mask, then the
// portrait one.
#define IDB_POSTER_SHEETS 14101

// The printer's figure. Layers of the composition: an option's bit, the source's number and the
// output's are added; those of the large capacity cassette and of the punch depend on other
// options.
#define IDB_FIGURE_OPTION 500
#define IDB_FIGURE_PUNCH 540
#define IDB_FIGURE_PUNCH_SMALL 541
#define IDB_FIGURE_LCC 542
#define IDB_FIGURE_LCC_LOW 543
#define IDB_FIGURE_SOURCE 550
#define IDB_FIGURE_FROM_LCC 850
#define IDB_FIGURE_FROM_LCC_LOW 851
#define IDB_FIGURE_OUTPUT 900
// Of the offset tray, the elevator tray and the tray below it, by the unit that has them.
#define IDB_FIGURE_TO_FINISHER 1001
#define IDB_FIGURE_TO_SMALL_FINISHER 1004
#define IDB_FIGURE_TO_THIRD_FINISHER 1007
#define IDB_FIGURE_TO_SORTER 1009
// Pairs of a whole printer and what is drawn over it.
#define IDB_WHOLE_PRINTER 1120
#define IDB_NO_PRINTER 13301

// Icons of the strip below the preview.
#define IDB_STATE_OVERLAY_COLOUR 13025
#define IDB_STATE_OVERLAY_NONE 13026
#define IDB_STATE_OVERLAY_MASK 13027
#define IDB_STATE_WATERMARK_MASK 13028
#define IDB_STATE_WATERMARK_NONE 13029
#define IDB_STATE_WATERMARK_FIRST 13030
#define IDB_STATE_COLOUR_MASK 13034
#define IDB_STATE_COLOUR 13035
#define IDB_STATE_MONOCHROME 13036
#define IDB_STATE_OVERLAY_BLACK 13037
