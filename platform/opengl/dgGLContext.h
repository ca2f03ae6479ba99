#pragma once

#include "dg_openglExport.h"

#include <functional>
#include <memory>
#include <string>

/// An OpenGL context, version 3.3 or later, that everything is drawn in. Of a core profile, or a compatible one; a
/// forward-compatible one serves as well, but has lines wider than a pixel drawn as quads.
///
/// A window back end derives from it to hand over a context of its window system; without a window,
/// create_off_screen makes one.
class DG_OPENGL_EXPORT dgGLContext
{
public:
    /// A context without a surface: on a graphics card if there is one, else the software driver. Null on failure,
    /// with the reason in error.
    static std::unique_ptr<dgGLContext> create_off_screen(std::string& error);

    /// The context that is current now and belongs to the application, as the one of a toolkit's widget does.
    /// make_current makes it the current one again, as cheaply as it can, and answers 0 once it is gone; left out, the
    /// application has it current in every call into the library. Drawing copes with whatever state the application has
    /// set in it, and puts that back: see dgGLDevice::Use. Null when make_current answers 0, with the reason in error.
    static std::unique_ptr<dgGLContext> adopt(std::function<int()> make_current, std::string& error);

    /// The context ends here, unless it is adopted; whatever was made in it is gone already.
    virtual ~dgGLContext();
    dgGLContext(const dgGLContext&) = delete;
    dgGLContext& operator=(const dgGLContext&) = delete;

    /// Makes the context the current one; 1 on success. Called before every drawing, so that it must cost nothing when
    /// the context is current already.
    virtual int make_current() = 0;

    /// Leaves no context current.
    virtual void done() = 0;

    /// 1 when the application draws in it too.
    virtual int shared() const { return 0; }

    /// How the context came about, for messages: "EGL surfaceless".
    virtual std::string name() const = 0;

protected:
    dgGLContext() = default;
};
