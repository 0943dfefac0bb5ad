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

// Bitmaps.
#define IDB_STYLE_ACROSS_LEFT  1469
#define IDB_STYLE_ACROSS_RIGHT 1470
#define IDB_STYLE_DOWN_LEFT    1471
#define IDB_STYLE_DOWN_RIGHT   1472
#define IDB_VIEW_TILE          13101
#define IDB_PAPER_MARKER       13853
#define IDB_PAPER_MARKER_MASK  13854
