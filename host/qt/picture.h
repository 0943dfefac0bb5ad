// Pictures that the core draws: windows and entries that paint themselves, bitmaps and icons.
#pragma once

#include <windows.h>

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QRect>

namespace kvqt {

// What the window draws of itself, in core pixels; null when the display has to draw it. Places
// that nothing is drawn on have the colour of the ground, or let it through in what a page draws for
// a control.
QImage PictureOfWindow(HWND window, const QColor& ground);
// Whether a window draws itself, or has its parent draw it.
bool DrawsItself(HWND window);

struct ItemLook {
    UINT state;  // ODS_...
    QColor ground;
    Qt::LayoutDirection reading;
    QFont font;
};
// One entry of an owner-drawn list or combo box, `item` -1 for the closed box. The owner draws it at
// the device's resolution and in the desktop's font. False when the display has to draw it.
bool DrawItem(QPainter& painter, const QRect& target, HWND control, int item, const ItemLook& look);
// An owner-drawn button, likewise; its state is its own.
void DrawButton(QPainter& painter, const QRect& target, HWND button, const ItemLook& look);

QImage PictureOf(HBITMAP bitmap);
// The icon's image that comes nearest to the size.
QImage PictureOf(HICON icon, const QSize& size);
QSize SizeOf(HICON icon);

// Draws a picture of core pixels into a rectangle of device-independent ones. Edges stay crisp also
// for factors like 1.25.
void DrawPicture(QPainter& painter, const QRect& target, const QImage& picture);

}  // namespace kvqt
