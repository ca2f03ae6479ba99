#include "gwQtKeys.h"

#include <QPointingDevice>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include <utility>

TEST(gwQtKeys, names_every_key_by_type_and_number)
{
    const auto expect = [](int key, gwKeyType type, int number)
    {
        EXPECT_EQ(gw_qt_key(key).type, type) << key;
        EXPECT_EQ(gw_qt_key(key).number, number) << key;
    };
    const std::pair<int, int> characters[] = {
        {Qt::Key_Escape, 27},   {Qt::Key_Return, 13}, {Qt::Key_Enter, 13}, {Qt::Key_Tab, 9}, {Qt::Key_Backtab, 9},
        {Qt::Key_Backspace, 8}, {Qt::Key_Space, ' '}, {Qt::Key_Z, 'Z'},    {Qt::Key_7, '7'}, {0, 0}};
    for (const auto& [key, character] : characters)
        expect(key, gwQWERTY_KEY, character);
    int number = 0;
    for (const int key : {Qt::Key_Insert, Qt::Key_Delete, Qt::Key_Home, Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown,
                          Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Down, Qt::Key_Print, Qt::Key_Pause,
                          Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt})
        expect(key, gwOTHER_KEY, ++number);
    expect(Qt::Key_F1, gwFUNCTION_KEY, 1);
    expect(Qt::Key_F35, gwFUNCTION_KEY, 35);
}

TEST(gwQtKeys, numbers_buttons_from_left_to_right_and_translates_modifiers)
{
    int number = 0;
    for (const Qt::MouseButton button :
         {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton, Qt::ExtraButton1, Qt::ExtraButton2})
        EXPECT_EQ(gw_qt_button(button), ++number);
    EXPECT_EQ(gw_qt_modifiers(Qt::ControlModifier | Qt::KeypadModifier), 1);
    EXPECT_EQ(gw_qt_modifiers(Qt::ShiftModifier), 2);
    EXPECT_EQ(gw_qt_modifiers(Qt::AltModifier | Qt::MetaModifier), 4);
}

TEST(gwQtKeys, tells_fingers_on_a_touch_pad_from_wheels)
{
    const auto moves = [](QPoint pixels, Qt::ScrollPhase phase, Qt::KeyboardModifiers modifiers)
    {
        QPointF way;
        // Of a device of its own: Qt's would never be freed without an application.
        const QPointingDevice pad;
        const QWheelEvent event(QPointF(), QPointF(), pixels, QPoint(0, 120), Qt::NoButton, modifiers, phase, false,
                                Qt::MouseEventNotSynthesized, &pad);
        return gw_qt_moves_on_touch_pad(event, way) && way == QPointF(pixels);
    };
    EXPECT_TRUE(moves(QPoint(3, -4), Qt::ScrollUpdate, Qt::NoModifier));
    EXPECT_TRUE(moves(QPoint(3, -4), Qt::ScrollMomentum, Qt::ShiftModifier)) << "they have left it, and it goes on";
    EXPECT_FALSE(moves(QPoint(3, -4), Qt::ScrollUpdate, Qt::ControlModifier));
    EXPECT_FALSE(moves(QPoint(0, 0), Qt::ScrollUpdate, Qt::NoModifier)) << "a wheel of a touch screen";
    EXPECT_FALSE(moves(QPoint(0, 15), Qt::NoScrollPhase, Qt::NoModifier)) << "a wheel that tells pixels";
}
