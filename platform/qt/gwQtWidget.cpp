#include "gwQtWidget.h"

#include "dgGLContext.h"
#include "dgGLDevice.h"
#include "dgGLHostArea.h"
#include "dgGLWindow.h"
#include "dgImage.h"
#include "gwQtKeys.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QPainter>
#include <QSurfaceFormat>
#include <QTimerEvent>
#include <QWheelEvent>

#include <cmath>

namespace
{
// A notch of the wheel in the units of QWheelEvent, and the change of size by a pinch that counts as one.
constexpr double notch = 120;
constexpr double pinch_of_a_notch = 0.1;

QSurfaceFormat core_format()
{
    QSurfaceFormat format;
    format.setVersion(3, 3);
    format.setProfile(QSurfaceFormat::CoreProfile);
    return format;
}
}

// A context of its own, which nobody else draws in.
class gwQtWidget::Context : public dgGLContext
{
public:
    // 1 when it was made.
    int create(QOpenGLContext* shared)
    {
        the_context.setShareContext(shared);
        the_context.setFormat(core_format());
        if (!the_context.create())
            return 0;
        the_surface.setFormat(the_context.format());
        the_surface.create();
        return the_surface.isValid();
    }
    int make_current() override
    {
        return QOpenGLContext::currentContext() == &the_context || the_context.makeCurrent(&the_surface);
    }
    void done() override { the_context.doneCurrent(); }
    std::string name() const override { return "Qt"; }

    QOpenGLContext* context() { return &the_context; }

private:
    QOffscreenSurface the_surface;
    QOpenGLContext the_context;
};

struct gwQtWidget::Native
{
    std::function<void(dgGLHostArea&)> started;
    std::function<void(double right, double up)> pan;
    std::unique_ptr<dgGLHostArea> area;
    Context* context = nullptr; // owned by the area's device
    std::string error;
    int timer = 0;
};

gwQtWidget::gwQtWidget(QWidget* parent) : QOpenGLWidget(parent), the_native(std::make_unique<Native>())
{
    setFormat(core_format());
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

void gwQtWidget::prepare()
{
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QSurfaceFormat format = QSurfaceFormat::defaultFormat();
    if (format.redBufferSize() < 0 && format.greenBufferSize() < 0 && format.blueBufferSize() < 0)
    {
        format.setRedBufferSize(8);
        format.setGreenBufferSize(8);
        format.setBlueBufferSize(8);
        QSurfaceFormat::setDefaultFormat(format);
    }
}

gwQtWidget::~gwQtWidget() = default;

void gwQtWidget::started_callback(std::function<void(dgGLHostArea&)> callback)
{
    the_native->started = std::move(callback);
}

void gwQtWidget::pan_callback(std::function<void(double right, double up)> callback)
{
    the_native->pan = std::move(callback);
}

dgGLHostArea* gwQtWidget::area() const
{
    return the_native->area.get();
}

const std::string& gwQtWidget::error() const
{
    return the_native->error;
}

void gwQtWidget::initializeGL()
{
    if (the_native->area)
        return; // in another window now
    QOpenGLContext* of_all = QOpenGLContext::globalShareContext();
    auto own = std::make_unique<Context>();
    the_native->context = own.get();
    if (!own->create(of_all ? of_all : context()))
    {
        the_native->error = "Qt: no OpenGL 3.3";
        return;
    }
    if (std::shared_ptr<dgGLDevice> device = dgGLDevice::create(std::move(own), the_native->error))
    {
        the_native->area = std::make_unique<dgGLHostArea>(std::move(device), 1, 1);
        resizeGL(width(), height());
        if (the_native->started)
            the_native->started(*the_native->area);
        wake();
    }
    makeCurrent();
}

void gwQtWidget::resizeGL(int width, int height)
{
    if (!the_native->area)
        return;
    const double scale = devicePixelRatioF();
    the_native->area->events().scale(scale, scale);
    the_native->area->resize(static_cast<int>(std::lround(width * scale)),
                             static_cast<int>(std::lround(height * scale)));
    makeCurrent();
}

void gwQtWidget::paintGL()
{
    if (!the_native->area)
        return;
    if (QOpenGLContext::areSharing(context(), the_native->context->context()))
    {
        the_native->area->paint(defaultFramebufferObject());
        return;
    }
    dgImage picture;
    the_native->area->read(picture);
    makeCurrent();
    const QImage image(picture.rgba.data(), picture.width, picture.height, QImage::Format_RGBX8888);
    QPainter(this).drawImage(rect(), image.mirrored());
}

void gwQtWidget::wake()
{
    if (!the_native->area)
        return;
    if (!the_native->timer)
        the_native->timer = startTimer(0);
    if (the_native->area->wants_paint())
        update();
}

void gwQtWidget::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != the_native->timer)
        return QOpenGLWidget::timerEvent(event);
    if (!the_native->area->idle())
    {
        killTimer(the_native->timer);
        the_native->timer = 0;
    }
    if (the_native->area->wants_paint())
        update();
}

bool gwQtWidget::event(QEvent* event)
{
    if (!the_native->area)
        return QOpenGLWidget::event(event);
    gwHostEvents& events = the_native->area->events();
    switch (event->type())
    {
    case QEvent::MouseMove:
    {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        events.pointer(mouse->position().x(), mouse->position().y());
        break;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        events.pointer(mouse->position().x(), mouse->position().y());
        events.button(gw_qt_button(mouse->button()), event->type() != QEvent::MouseButtonRelease,
                      gw_qt_modifiers(mouse->modifiers()));
        break;
    }
    case QEvent::Wheel:
    {
        const auto* wheel = static_cast<QWheelEvent*>(event);
        events.pointer(wheel->position().x(), wheel->position().y());
        if (QPointF way; the_native->pan && gw_qt_moves_on_touch_pad(*wheel, way))
            the_native->pan(way.x() * devicePixelRatioF(), -way.y() * devicePixelRatioF());
        else
            events.wheel(wheel->angleDelta().y() / notch);
        event->accept();
        break;
    }
    case QEvent::NativeGesture:
    {
        const auto* gesture = static_cast<QNativeGestureEvent*>(event);
        if (gesture->gestureType() != Qt::ZoomNativeGesture)
            return QOpenGLWidget::event(event);
        events.pointer(gesture->position().x(), gesture->position().y());
        events.wheel(gesture->value() / pinch_of_a_notch);
        break;
    }
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (!key->isAutoRepeat())
            events.key(gw_qt_key(key->key()), event->type() == QEvent::KeyPress, gw_qt_modifiers(key->modifiers()));
        break;
    }
    case QEvent::FocusOut: events.focus_lost(); break;
    default: return QOpenGLWidget::event(event);
    }
    wake();
    return true;
}
