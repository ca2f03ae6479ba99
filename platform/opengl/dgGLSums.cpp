#include "dgGLSums.h"

#include "dgGLPrograms.h"
#include "dgGLSavedState.h"

#include <epoxy/gl.h>

namespace
{
constexpr float most_of_8_bits = 255, most_of_16_bits = 65535;

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
    if (!anew)
    {
        dg_gl_blend_factors(GL_ONE, GL_ONE, GL_ONE, GL_ONE);
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
