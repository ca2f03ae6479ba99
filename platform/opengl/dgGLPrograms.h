#pragma once

#include <array>
#include <string>

struct dgGLPixels;

/// How a program shades.
enum dgGLShading
{
    dgGL_SHADE_PLAIN = 0,  ///< front or back colour as it is
    dgGL_SHADE_SMOOTH = 1, ///< lit, normals of the nodes
    dgGL_SHADE_FLAT = 2    ///< lit, normal of the triangle
};

/// What a program is made for; each combination is compiled when it is first asked for.
struct dgGLProgramKind
{
    dgGLShading shading = dgGL_SHADE_PLAIN;
    int depth_cueing = 0;
    int line_style = 0;   ///< not 0: lines with gaps
    int wide_lines = 0;   ///< lines become quads
    int two_coloured = 0; ///< back sides have another colour
    /// The colour comes with the vertices, the only one, and not for wide lines. On a software driver that saves more
    /// than half of what a change of colour takes, but takes more for each triangle.
    int passed_colour = 0;
    int sectioned = 0; ///< draws with GL_CLIP_DISTANCE0
    int curved = 0;    ///< lit smoothly, by normals with the bends of dgGLBends

    /// A number from 0 to count - 1.
    static constexpr int count = 512;
    int number() const
    {
        return shading + 4 * (depth_cueing != 0) + 8 * (line_style != 0) + 16 * (wide_lines != 0) +
               32 * (two_coloured != 0) + 64 * (passed_colour != 0) + 128 * (sectioned != 0) + 256 * (curved != 0);
    }
};

/// One linked program: where its uniforms are, and which values they were last given.
struct dgGLProgram
{
    unsigned name = 0;
    int made = 0; // compiled, or tried in vain
    int model_to_clip = -1;
    int model_to_view = -1;
    int normal_to_view = -1;
    int front_colour = -1;
    int back_colour = -1;
    int cue = -1;
    int cue_colour = -1;
    int view_port = -1;
    int line_width = -1;
    int line_style = -1;
    int point_size = -1;
    int section = -1;

    unsigned long long transform_stamp = 0;
    unsigned long long state_stamp = 0;
    int topology = -1;
};

/// The shader programs of a device. A context must be current in every call that does not say otherwise.
class dgGLPrograms
{
public:
    dgGLPrograms();
    ~dgGLPrograms();

    /// 1 when the programs that every picture needs were compiled, else the compiler's words are in error.
    int compile_basics(std::string& error);

    /// A program, or null when it does not compile.
    dgGLProgram* find(const dgGLProgramKind& kind);

    /// Makes a program the current one.
    void use(unsigned name);

    /// Another one may be current now. Needs no context.
    void forget_current() { the_current = 0; }

    /// Leaves the programs to a context that is gone. Needs no context, nor does the end after it.
    void abandon() { the_abandoned = 1; }

    /// Fills the scissor box: bottom colour at row low, top colour at row high.
    void draw_graduated(const float (&bottom)[3], const float (&top)[3], int low, int high);

    /// Copies a texture where its alpha is not 0, pixel by pixel. A vertex array of the current context must be bound.
    void draw_keyed(unsigned texture, const dgGLPixels& pixels);

    /// Copies a texture times a factor, pixel by pixel.
    void draw_scaled(unsigned texture, float factor, const dgGLPixels& pixels);

private:
    void draw_texture(unsigned texture, const dgGLPixels& pixels);

    std::array<dgGLProgram, dgGLProgramKind::count> the_programs;
    unsigned the_graduated = 0;
    unsigned the_keyed = 0;
    unsigned the_scaled = 0; // made when first asked for
    unsigned the_empty_array = 0;
    unsigned the_current = 0; // 0 when not known
    int the_abandoned = 0;
    std::string the_log;
};
