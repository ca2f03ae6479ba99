#pragma once

#include "dgGLContext.h"

#include <memory>
#include <string>

struct GLFWwindow;

/// The OpenGL context of a native window, which it owns with the window. Counts its use of GLFW, which starts with the
/// first context and ends with the last.
class gwGLFWContext : public dgGLContext
{
public:
    /// Null on failure, with the reason in error. The sizes are screen coordinates.
    static std::unique_ptr<gwGLFWContext> create(const std::string& title, int width, int height, std::string& error);
    ~gwGLFWContext() override;

    int make_current() override;
    void done() override;
    std::string name() const override;

    GLFWwindow* window() const { return the_window; }

private:
    explicit gwGLFWContext(GLFWwindow* window) : the_window(window) {}
    GLFWwindow* the_window;
};
