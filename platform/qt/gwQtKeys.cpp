#include "gwQtKeys.h"

#include <QWheelEvent>

gwHostKey gw_qt_key(int qt_key)
{
    if (qt_key >= Qt::Key_F1 && qt_key <= Qt::Key_F35)
        return {gwFUNCTION_KEY, qt_key - Qt::Key_F1 + 1};
    switch (qt_key)
    {
    case Qt::Key_Escape: return gw_character_key(27);
    case Qt::Key_Return:
    case Qt::Key_Enter: return gw_character_key('\r');
    case Qt::Key_Tab:
    case Qt::Key_Backtab: return gw_character_key('\t');
    case Qt::Key_Backspace: return gw_character_key('\b');
    case Qt::Key_Insert: return {gwOTHER_KEY, gwKEY_INSERT};
    case Qt::Key_Delete: return {gwOTHER_KEY, gwKEY_DELETE};
    case Qt::Key_Home: return {gwOTHER_KEY, gwKEY_HOME};
    case Qt::Key_End: return {gwOTHER_KEY, gwKEY_END};
    case Qt::Key_PageUp: return {gwOTHER_KEY, gwKEY_PAGE_UP};
    case Qt::Key_PageDown: return {gwOTHER_KEY, gwKEY_PAGE_DOWN};
    case Qt::Key_Left: return {gwOTHER_KEY, gwKEY_LEFT_ARROW};
    case Qt::Key_Up: return {gwOTHER_KEY, gwKEY_UP_ARROW};
    case Qt::Key_Right: return {gwOTHER_KEY, gwKEY_RIGHT_ARROW};
    case Qt::Key_Down: return {gwOTHER_KEY, gwKEY_DOWN_ARROW};
    case Qt::Key_Print: return {gwOTHER_KEY, gwKEY_PRINT_SCREEN};
    case Qt::Key_Pause: return {gwOTHER_KEY, gwKEY_PAUSE};
    case Qt::Key_Shift: return {gwOTHER_KEY, gwKEY_SHIFT};
    case Qt::Key_Control: return {gwOTHER_KEY, gwKEY_CTRL};
    case Qt::Key_Alt: return {gwOTHER_KEY, gwKEY_ALT};
    }
    // Printable keys have the codes of their upper-case characters.
    return qt_key > 0 ? gw_character_key(static_cast<unsigned>(qt_key)) : gwHostKey();
}

int gw_qt_button(Qt::MouseButton button)
{
    switch (button)
    {
    case Qt::LeftButton: return 1;
    case Qt::MiddleButton: return 2;
    case Qt::RightButton: return 3;
    default: break;
    }
    int number = 1;
    for (unsigned bits = static_cast<unsigned>(button); bits > 1; bits >>= 1)
        ++number;
    return number; // the first one after these three is the fourth bit
}

int gw_qt_modifiers(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::ControlModifier ? gwMODIFIER_CONTROL : 0) |
           (modifiers & Qt::ShiftModifier ? gwMODIFIER_SHIFT : 0) | (modifiers & Qt::AltModifier ? gwMODIFIER_ALT : 0);
}

int gw_qt_moves_on_touch_pad(const QWheelEvent& event, QPointF& way)
{
    // Wheels have no phases, and only what follows fingers tells pixels.
    if (event.pixelDelta().isNull() || event.phase() == Qt::NoScrollPhase || event.modifiers() & Qt::ControlModifier)
        return 0;
    way = event.pixelDelta();
    return 1;
}
