#pragma once

#include <QFont>
#include <QRect>

namespace kvt {

// The face of the forms, and the factor by which their lengths grow with it.
struct FormFont {
    QFont Font;
    double Factor;
};

// That of the desktop. Where a form of the smallest size, in twips, has no room on the screen, face and factor are
// somewhat smaller.
FormFont FontOfDesktop(const QFont& desktop, QSize screen, QSize smallestForm);
// For a factor that was chosen: the largest size of a face that the forms have room for.
FormFont FontForFactor(const QFont& face, double factor);

// What a screen has for the field of a window, when title, edges and menus have theirs.
QRect RoomIn(const QRect& screen);

// A face in which all characters are of one width.
QFont FixedPitchFont();

}  // namespace kvt
