#include "dgGLSums.h"

#include "dgGLPrograms.h"

#include <epoxy/gl.h>

#include <algorithm>
#include <optional>

namespace
{
constexpr float most_of_8_bits = 255, most_of_16_bits = 65535;

// Adds to what is there for its life. OpenGL 4 has a function for each buffer that is drawn into; it is the first
// one's.
class Adding
{
public:
    Adding()
    {
        for (int i = 0; i < n_values; ++i)
            glGetIntegerv(names[i], &the_values[i]);
        set(GL_FUNC_ADD, GL_FUNC_ADD, GL_ONE, GL_ONE, GL_ONE, GL_ONE);
    }
    ~Adding()
    {
        const auto value = [this](int i) { return static_cast<unsigned>(the_values[i]); };
        set(value(0), value(1), value(2), value(3), value(4), value(5));
    }
    Adding(const Adding&) = delete;
    Adding& operator=(const Adding&) = delete;

private:
    static constexpr int n_values = 6;
    static constexpr unsigned names[n_values] = {GL_BLEND_EQUATION_RGB, GL_BLEND_EQUATION_ALPHA, GL_BLEND_SRC_RGB,
                                                 GL_BLEND_DST_RGB,      GL_BLEND_SRC_ALPHA,      GL_BLEND_DST_ALPHA};
    static void set(unsigned colours, unsigned alphas, unsigned source, unsigned target, unsigned source_alpha,
                    unsigned target_alpha)
    {
        if (epoxy_gl_version() >= 40)
        {
            glBlendEquationSeparatei(0, colours, alphas);
            glBlendFuncSeparatei(0, source, target, source_alpha, target_alpha);
            return;
        }
        glBlendEquationSeparate(colours, alphas);
        glBlendFuncSeparate(source, target, source_alpha, target_alpha);
    }
    int the_values[n_values];
};

void plain_modes()
{
    for (const unsigned capability : {GL_DEPTH_TEST, GL_STENCIL_TEST, GL_COLOR_LOGIC_OP, GL_BLEND, GL_DITHER})
        glDisable(capability);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
}
}

bool dgGLSums::make(int width, int height)
{
    glGenTextures(1, &the_texture);
    glBindTexture(GL_TEXTURE_2D, the_texture);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA16, width, height, 0, GL_RGBA, GL_UNSIGNED_SHORT, nullptr);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_LEVEL, 0);
    int made_width = 0;
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &made_width);
    glBindTexture(GL_TEXTURE_2D, 0);
    glGenFramebuffers(1, &the_framebuffer);
    glBindFramebuffer(GL_FRAMEBUFFER, the_framebuffer);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, the_texture, 0);
    if (made_width == width && glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE)
        return true;
    free();
    glGetError(); // what was wrong is said by the answer
    return false;
}

void dgGLSums::free()
{
    glDeleteFramebuffers(1, &the_framebuffer);
    glDeleteTextures(1, &the_texture);
    the_framebuffer = the_texture = 0;
}

void dgGLSums::add(dgGLPrograms& programs, unsigned texture, const dgGLPixels& pixels, int anew)
{
    plain_modes();
    glBindFramebuffer(GL_FRAMEBUFFER, the_framebuffer);
    std::optional<Adding> adding;
    if (!anew)
    {
        adding.emplace();
        glEnable(GL_BLEND);
    }
    programs.draw_scaled(texture, most_of_8_bits / most_of_16_bits, pixels);
    glDisable(GL_BLEND);
}

void dgGLSums::put_mean(dgGLPrograms& programs, const dgGLPixels& pixels, int pictures) const
{
    plain_modes();
    programs.draw_scaled(the_texture, most_of_16_bits / (most_of_8_bits * static_cast<float>(pictures)), pixels);
}
