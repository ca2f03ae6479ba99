#pragma once

#include "gw_qtExport.h"

#include <QOpenGLWidget>

#include <functional>
#include <memory>

class dgGLHostArea;

/// A Qt widget that views are shown in and twiddled by mouse, wheel, touch pad and keyboard.
///
/// The library draws in a context of the widget's own, so that neither painters nor other widgets disturb it, and so
/// that what it keeps there outlives changes of the widget's window.
///
/// Sizes and positions are device pixels, whatever the scale of the screen. Idle work is done by a timer that runs only
/// while there is some: a widget in which nothing moves takes no time. One thread, Qt's, uses it.
class GW_QT_EXPORT gwQtWidget : public QOpenGLWidget
{
public:
    /// To be called before the QApplication is made: sets Qt::AA_ShareOpenGLContexts, so that pictures are copied
    /// inside the graphics card, and not through memory once a widget has been moved to another window; and asks for 8
    /// bits a colour in Qt's default surface format where that asks for none, as Qt takes 16 a pixel on Wayland
    /// otherwise.
    static void prepare();

    explicit gwQtWidget(QWidget* parent = nullptr);
    /// Renderers on its windows end before it.
    ~gwQtWidget() override;

    /// Called once, when the area is there; it makes renderer, views and twiddling, and draws for the first time.
    void started_callback(std::function<void(dgGLHostArea&)> callback);

    /// Called when two fingers move on a touch pad, with their way in device pixels, for grViewOperations::pan and a
    /// redraw. Without it, and while control is held, they turn the wheel.
    void pan_callback(std::function<void(double right, double up)> callback);

    /// Null until the widget is shown for the first time, and for ever when there is no OpenGL 3.3: then error says
    /// why.
    dgGLHostArea* area() const;
    const std::string& error() const;

    /// Shows what was drawn and calls the area's idle callback until that answers 0. Called by itself after every event
    /// of the widget; an application calls it when it has drawn or changed something by other ways.
    void wake();

protected:
    void initializeGL() override;
    void resizeGL(int width, int height) override;
    void paintGL() override;
    bool event(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    class Context;
    struct Native;
    std::unique_ptr<Native> the_native;
};
