#pragma once

#include "gwHostEvents.h"

#include <Qt>

class QPointF;
class QWheelEvent;

/// Translates a key of Qt (Qt::Key). Keys with no number of their own are not reported.
gwHostKey gw_qt_key(int qt_key);

/// The number of a button, as gwHostEvents::button takes it.
int gw_qt_button(Qt::MouseButton button);

/// Translates the modifiers of Qt to bits of gwModifier.
int gw_qt_modifiers(Qt::KeyboardModifiers modifiers);

/// 1 when a turn of the wheel is two fingers that move on a touch pad, by way in the units of positions; control held
/// with it makes it a turn of the wheel.
int gw_qt_moves_on_touch_pad(const QWheelEvent& event, QPointF& way);
