#pragma once

#include "dg_openglExport.h"

#include <memory>
#include <string>

class dgGLClusters;
class dgGLContext;
class dgGLGeometryStore;
class dgGLPrograms;
class dgGLSavedState;
class dgGLTextStore;

/// What all windows that draw in one OpenGL context share: programs, buffers and the copies of the geometry.
///
/// A primitive drawn in several windows of one device is kept once.
class DG_OPENGL_EXPORT dgGLDevice
{
public:
    /// Takes a context over and makes it current. Null when it is older than OpenGL 3.3 or a program does not compile,
    /// with the reason in error.
    static std::shared_ptr<dgGLDevice> create(std::unique_ptr<dgGLContext> context, std::string& error);

    /// The same with a context without a surface.
    static std::shared_ptr<dgGLDevice> create_off_screen(std::string& error);

    /// Windows keep their device; it ends with the last of them.
    ~dgGLDevice();
    dgGLDevice(const dgGLDevice&) = delete;
    dgGLDevice& operator=(const dgGLDevice&) = delete;

    dgGLContext& context() { return *the_context; }

    /// While one lives the context is the current one, unless it is lost, and where the application draws in it too, in
    /// the state of a new context; afterwards it is as the application had it. They nest. The library makes them around
    /// all that it does, so that the application need not; it may, to have several refreshes share what one costs.
    ///
    /// Conditional rendering, transform feedback and queries of samples must not be under way.
    class DG_OPENGL_EXPORT Use
    {
    public:
        explicit Use(dgGLDevice& device) : the_device(device) { device.begin_use(); }
        ~Use() { the_device.end_use(); }
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

        /// False when the context is lost.
        explicit operator bool() const { return !the_device.lost(); }

    private:
        dgGLDevice& the_device;
    };
    void begin_use();
    void end_use();

    /// 1 once the context could not be made current, or the application has said that it is gone. Then nothing is drawn
    /// any more, pictures that are read are empty, and windows and the device can end in any order.
    int lost() const { return the_lost; }
    void lost(int on) { the_lost = on; }

    dgGLGeometryStore& geometry() { return *the_geometry; }
    dgGLClusters& clusters() { return *the_clusters; }
    dgGLPrograms& programs() { return *the_programs; }
    dgGLTextStore& texts() { return *the_texts; }

    /// The driver's own name and version, and how the context was made.
    std::string name() const;

    /// Widest line in pixels that the graphics driver draws by itself; wider ones become quads.
    float line_width_limit() const { return the_line_width_limit; }
    void line_width_limit(float pixels) { the_line_width_limit = pixels; }

    /// Lets no simplified levels of large blocks be made from now on: for pictures of what does not move. The
    /// environment variable GR_LEVELS does the same when it is 0.
    void make_no_levels();

    /// Fills a vertex buffer that is used once, with positions of three floats, and binds its vertex array.
    void stream_points(const float* xyz, int npoints);

    /// Whose modes OpenGL is in: the driver that finds another one here sets its own first. Null for nobody's.
    const void* modes_owner() const { return the_modes_owner; }
    void modes_owner(const void* driver) { the_modes_owner = driver; }

    /// Waits until everything is drawn.
    void finish();

    /// Waits until everything is drawn that came before the last call of this.
    void finish_all_but_last();

    /// 1 when OpenGL has recorded no error since the last call.
    int no_errors();

private:
    int make_current();
    explicit dgGLDevice(std::unique_ptr<dgGLContext> context);

    std::unique_ptr<dgGLContext> the_context;
    std::unique_ptr<dgGLPrograms> the_programs;
    std::unique_ptr<dgGLGeometryStore> the_geometry;
    std::unique_ptr<dgGLClusters> the_clusters;
    std::unique_ptr<dgGLTextStore> the_texts;
    unsigned the_stream_buffer = 0;
    unsigned the_stream_array = 0;
    void* the_last_fence = nullptr;
    float the_line_width_limit = 1;
    const void* the_modes_owner = nullptr;
    int the_lost = 0;
    int the_uses = 0;
    std::unique_ptr<dgGLSavedState> the_application_state; // of a shared context, kept for its room
    std::unique_ptr<dgGLSavedState> the_initial_state;
    int the_state_is_put_away = 0;
};
