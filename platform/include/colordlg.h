// Control ids of the colour dialog; a template of one's own uses those it wants.
#pragma once

#define COLOR_LUMSCROLL 702
#define COLOR_HUE 703
#define COLOR_SAT 704
#define COLOR_LUM 705
#define COLOR_RED 706
#define COLOR_GREEN 707
#define COLOR_BLUE 708
#define COLOR_CURRENT 709
#define COLOR_RAINBOW 710
#define COLOR_ADD 712
#define COLOR_MIX 719
#define COLOR_BOX1 720
#define COLOR_CUSTOM1 721

#define NUM_BASIC_COLORS 48
#define NUM_CUSTOM_COLORS 16
