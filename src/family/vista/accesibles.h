#pragma once
// Accessible names for every control, so that screen readers and UI tests find each box and
// button by what the user reads beside it. Windows need no code of their own: an application
// filter names each control as it is shown, where its accessibleName is still empty.
//
//   button            its caption without the '&' ("&Grabar" -> "Grabar"), else its tip
//   casilla box       "Casilla N" and the label beside it ("Casilla 610 NUEVO COEFICIENTE ...")
//   box, list, grid   the label that names it (buddy, form label, the label before it in its
//                     layout, the label just left of it on the screen), else its frame's title;
//                     a grid or a text also its tab's caption or the window's title; else its
//                     tip or its object name
//   inner parts       (a combo's edit line, a grid's headers) from the control that holds them
#include <QString>

class QWidget;

// The name `w` would receive; empty only for controls that take no name (labels, frames).
QString nombreAccesibleSugerido(const QWidget* w);
// Names `w` and every child of it that has no accessible name yet. Names given by this helper
// are recomputed each time (a caption may have changed); names given by code are kept.
void nombrarAccesibles(QWidget* w);
// Installs the filter on the application (once): each control is named when it is shown.
void instalarNombresAccesibles();
