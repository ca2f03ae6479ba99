#include "gwGLFWContext.h"

#include <GLFW/glfw3.h>

namespace
{
int the_n_contexts = 0;

std::string reason(const char* otherwise)
{
    const char* description = nullptr;
    return glfwGetError(&description) != GLFW_NO_ERROR && description ? description : otherwise;
}

void stop_if_unused()
{
    if (!the_n_contexts)
        glfwTerminate();
}
}

std::unique_ptr<gwGLFWContext> gwGLFWContext::create(const std::string& title, int width, int height,
                                                     std::string& error)
{
    if (!glfwInit())
    {
        error = reason("the window system cannot be reached");
        return nullptr;
    }
    glfwDefaultWindowHints();
    glfwWindowHint(GLFW_CONTEXT_VERSION_MAJOR, 3);
    glfwWindowHint(GLFW_CONTEXT_VERSION_MINOR, 3);
    glfwWindowHint(GLFW_OPENGL_PROFILE, GLFW_OPENGL_CORE_PROFILE);
    // Not forward-compatible: such contexts may refuse lines wider than a pixel.
    glfwWindowHint(GLFW_OPENGL_FORWARD_COMPAT, GLFW_FALSE);
    // The window only shows what framebuffers hold.
    glfwWindowHint(GLFW_DEPTH_BITS, 0);
    glfwWindowHint(GLFW_STENCIL_BITS, 0);
    glfwWindowHint(GLFW_ALPHA_BITS, 0);
    GLFWwindow* window = glfwCreateWindow(width, height, title.c_str(), nullptr, nullptr);
    if (!window)
    {
        error = reason("no window with OpenGL 3.3 can be opened");
        stop_if_unused();
        return nullptr;
    }
    ++the_n_contexts;
    return std::unique_ptr<gwGLFWContext>(new gwGLFWContext(window));
}

gwGLFWContext::~gwGLFWContext()
{
    glfwDestroyWindow(the_window);
    --the_n_contexts;
    stop_if_unused();
}

int gwGLFWContext::make_current()
{
    if (glfwGetCurrentContext() != the_window)
        glfwMakeContextCurrent(the_window);
    return glfwGetCurrentContext() == the_window;
}

void gwGLFWContext::done()
{
    glfwMakeContextCurrent(nullptr);
}

std::string gwGLFWContext::name() const
{
    return std::string("GLFW ") + glfwGetVersionString();
}
