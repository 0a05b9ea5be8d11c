// The system's own skin: the colours and strokes that all looks share. Strokes lie on whole device pixels, so
// that they are crisp on every screen.
#pragma once

#include <QColor>
#include <QRectF>

class QPainter;
class QString;
class QWidget;

namespace tessera::skin {

inline constexpr QRgb kAccent = 0xFF3E7CB8;
inline constexpr QRgb kAccentLight = 0xFFDCEAF7;
inline constexpr QRgb kEdge = 0xFF8C97A3;
inline constexpr QRgb kEdgeDisabled = 0xFFBCC3CA;
inline constexpr QRgb kFieldDisabled = 0xFFECEEF0;
inline constexpr QRgb kTextDisabled = 0xFF8A9099;
inline constexpr double kRound = 3;  // radius of corners

enum class State { Normal, Hover, Focus, Disabled };

// The state of a widget as its frame shows it.
State StateOf(const QWidget& widget);

QColor EdgeOf(State state);

// The text colour of a control: its own, or grey while it is disabled.
QColor TextColour(const QWidget& widget, const QColor& own);

// A rectangle of rounded corners with its one-pixel edge inside `rect`.
void PaintFrame(QPainter& painter, const QRectF& rect, const QColor& ground, State state);

// The mark of the focus inside `rect`: a dotted line.
void PaintFocusMark(QPainter& painter, const QRectF& rect, const QColor& colour);

// A little triangle in the middle of `rect`, pointing to the given side.
enum class Direction { Up, Down, Left, Right };
void PaintArrow(QPainter& painter, const QRectF& rect, Direction direction, const QColor& colour);

}  // namespace tessera::skin
