#include "dgGLPrograms.h"

#include "dgGLPixels.h"

#include <epoxy/gl.h>

#include <cstddef>
#include <vector>

namespace
{
// The parts that a program leaves out are cut by the preprocessor: on a software driver every interpolated value and
// every operation of a vertex counts.
constexpr char vertex_source[] = R"(
uniform mat4 model_to_clip;
uniform mat4 model_to_view;
uniform mat3 normal_to_view;
uniform vec4 view_port;   // zw: half its size in pixels
uniform float point_size;
layout(location = 0) in vec3 position;
layout(location = 1) in vec4 normal;
#ifdef CURVED
layout(location = 2) in vec3 half_bend_0;
layout(location = 3) in vec3 half_bend_1;
layout(location = 4) in vec3 half_bend_2;
out vec2 corners;         // shares of the first and the second one
flat out vec3 bend_0;     // of the third corner, times what makes the product of two shares 1 in the middle of a side
flat out vec3 bend_1;
flat out vec3 bend_2;
#endif
#ifdef SMOOTH
out vec3 normal_in_view;
#endif
#ifdef FLAT
out vec3 position_in_view;
#endif
#ifdef STYLED
flat out vec2 end_in_pixels;
noperspective out vec2 point_in_pixels;
#endif
#ifdef PASSED_COLOUR
uniform vec3 front_colour;
flat out vec3 passed_colour;
#endif
#ifdef SECTIONED
uniform vec4 section;     // in the coordinates of positions
#endif
invariant gl_Position;
void main()
{
    gl_Position = model_to_clip * vec4(position, 1.0);
#ifdef SMOOTH
    normal_in_view = normal_to_view * normal.xyz;
#endif
#ifdef CURVED
    corners = vec2(normal.w > 0.5, normal.w < -0.75);
    bend_0 = 8.0 * (normal_to_view * half_bend_0);
    bend_1 = 8.0 * (normal_to_view * half_bend_1);
    bend_2 = 8.0 * (normal_to_view * half_bend_2);
#endif
#ifdef FLAT
    position_in_view = (model_to_view * vec4(position, 1.0)).xyz;
#endif
#ifdef STYLED
    point_in_pixels = end_in_pixels = gl_Position.xy / gl_Position.w * view_port.zw;
#endif
#ifdef PLAIN
    gl_PointSize = point_size;
#endif
#ifdef PASSED_COLOUR
    passed_colour = front_colour;
#endif
#ifdef SECTIONED
    gl_ClipDistance[0] = dot(section, vec4(position, 1.0));
#endif
}
)";

// A quad of exact width around each segment. The part in front of the near plane is cut off first, since nothing behind
// the eye can be projected, and what a section takes away with it, since its sides have the distances of the segment.
constexpr char wide_line_source[] = R"(
layout(lines) in;
layout(triangle_strip, max_vertices = 4) out;
uniform vec4 view_port;
uniform float line_width;
#ifdef STYLED
flat out vec2 end_in_pixels;
noperspective out vec2 point_in_pixels;
#endif
void corner(vec4 place, vec2 offset, vec2 pixels, vec2 end_pixels)
{
    gl_Position = vec4(place.xy + offset * place.w, place.zw);
#ifdef STYLED
    point_in_pixels = pixels;
    end_in_pixels = end_pixels;
#endif
#ifdef SECTIONED
    gl_ClipDistance[0] = 1.0;
#endif
    EmitVertex();
}
void main()
{
    vec4 a = gl_in[0].gl_Position;
    vec4 b = gl_in[1].gl_Position;
#ifdef SECTIONED
    float a_kept = gl_in[0].gl_ClipDistance[0];
    float b_kept = gl_in[1].gl_ClipDistance[0];
    if (a_kept < 0.0 && b_kept < 0.0)
        return;
    if (a_kept < 0.0)
        a = mix(a, b, a_kept / (a_kept - b_kept));
    else if (b_kept < 0.0)
        b = mix(b, a, b_kept / (b_kept - a_kept));
#endif
    float a_depth = a.z + a.w;
    float b_depth = b.z + b.w;
    if (a_depth < 0.0 && b_depth < 0.0)
        return;
    if (a_depth < 0.0)
        a = mix(a, b, a_depth / (a_depth - b_depth));
    else if (b_depth < 0.0)
        b = mix(b, a, b_depth / (b_depth - a_depth));
    vec2 a_pixels = a.xy / a.w * view_port.zw;
    vec2 b_pixels = b.xy / b.w * view_port.zw;
    vec2 along = b_pixels - a_pixels;
    float pixels = length(along);
    along = pixels > 0.0 ? along / pixels : vec2(1.0, 0.0);
    vec2 offset = 0.5 * line_width * vec2(-along.y, along.x) / view_port.zw;
    corner(a, offset, a_pixels, b_pixels);
    corner(a, -offset, a_pixels, b_pixels);
    corner(b, offset, b_pixels, b_pixels);
    corner(b, -offset, b_pixels, b_pixels);
    EndPrimitive();
}
)";

// On a software driver a choice between colours costs a third of the shading, so that most programs have one colour;
// and a normal is scaled and turned to the viewer where it has become one number.
//
// The light stands by the eye, a little to the upper left of it: surfaces that face the viewer stay bright while those
// that turn away shade off differently to every side. Highlights are a power of 32, by squaring.
//
// Gaps of lines are counted along the axis that the line follows more closely, so that a pattern runs on from one short
// segment of a curve to the next.
constexpr char fragment_source[] = R"(
#ifdef PASSED_COLOUR
flat in vec3 passed_colour;
#else
uniform vec3 front_colour;
uniform vec3 back_colour;
#endif
uniform vec3 cue;         // share of the cue colour: dot(cue, (window z, clip w, 1))
uniform vec3 cue_colour;
uniform int line_style;
#ifdef SMOOTH
in vec3 normal_in_view;
#endif
#ifdef CURVED
in vec2 corners;
flat in vec3 bend_0;
flat in vec3 bend_1;
flat in vec3 bend_2;
#endif
#ifdef FLAT
in vec3 position_in_view;
#endif
#ifdef STYLED
flat in vec2 end_in_pixels;
noperspective in vec2 point_in_pixels;
const int patterns[4] = int[4](0xffff, 0x0fff, 0x3333, 0x187f);
#endif
layout(location = 0) out vec4 pixel;
const vec3 light = vec3(-0.2673, 0.3564, 0.8953);
const vec3 halfway = vec3(-0.1373, 0.1831, 0.9735);
void main()
{
#ifdef STYLED
    vec2 along = abs(point_in_pixels - end_in_pixels);
    int place = int(floor(along.x >= along.y ? gl_FragCoord.x : gl_FragCoord.y));
    if (((patterns[line_style & 3] >> (place & 15)) & 1) == 0)
        discard;
#endif
#if defined(TWO_COLOURED)
    vec3 colour = gl_FrontFacing ? front_colour : back_colour;
#elif defined(PASSED_COLOUR)
    vec3 colour = passed_colour;
#else
    vec3 colour = front_colour;
#endif
#ifdef SMOOTH
    vec3 normal = normal_in_view;
#ifdef CURVED
    float third = 1.0 - corners.x - corners.y;
    normal += corners.x * corners.y * bend_0 + corners.y * third * bend_1 + third * corners.x * bend_2;
#endif
    float scale = inversesqrt(dot(normal, normal));
    scale = gl_FrontFacing ? scale : -scale;
#endif
#ifdef FLAT
    vec3 normal = cross(dFdx(position_in_view), dFdy(position_in_view));
    float scale = inversesqrt(dot(normal, normal));
#endif
#ifndef PLAIN
    float shine = max(scale * dot(normal, halfway), 0.0);
    shine *= shine;
    shine *= shine;
    shine *= shine;
    shine *= shine;
    shine *= shine;
    colour = colour * (0.26 + 0.07 * scale * normal.y + 0.69 * max(scale * dot(normal, light), 0.0)) + 0.16 * shine;
#endif
#ifdef CUED
    colour = mix(colour, cue_colour, clamp(cue.x * gl_FragCoord.z + cue.y / gl_FragCoord.w + cue.z, 0.0, 1.0));
#endif
    pixel = vec4(colour, 1.0);
}
)";

// One triangle that covers everything; the scissor box says what is meant.
constexpr char cover_source[] = R"(
void main()
{
    gl_Position = vec4(gl_VertexID == 1 ? 3.0 : -1.0, gl_VertexID == 2 ? 3.0 : -1.0, 0.0, 1.0);
}
)";

constexpr char graduated_source[] = R"(
uniform vec3 bottom;
uniform vec3 top;
uniform vec2 rows;   // the low one, and 1 / (high - low)
layout(location = 0) out vec4 pixel;
void main()
{
    pixel = vec4(mix(bottom, top, clamp((gl_FragCoord.y - 0.5 - rows.x) * rows.y, 0.0, 1.0)), 1.0);
}
)";

constexpr char keyed_source[] = R"(
uniform sampler2D layer;
layout(location = 0) out vec4 pixel;
void main()
{
    pixel = texelFetch(layer, ivec2(gl_FragCoord.xy), 0);
    if (pixel.a == 0.0)
        discard;
}
)";

constexpr char scaled_source[] = R"(
uniform sampler2D layer;
uniform float factor;
layout(location = 0) out vec4 pixel;
void main()
{
    pixel = factor * texelFetch(layer, ivec2(gl_FragCoord.xy), 0);
}
)";

constexpr char version_source[] = "#version 330 core\n";

template <class Query, class Log>
std::string log_of(unsigned object, Query query, Log read)
{
    int length = 0;
    query(object, GL_INFO_LOG_LENGTH, &length);
    std::vector<char> text(static_cast<std::size_t>(length) + 1);
    read(object, length, nullptr, text.data());
    return text.data();
}

// 0 when it does not compile; log then says why.
unsigned compile(unsigned stage, const std::string& defines, const char* source, std::string& log)
{
    const unsigned shader = glCreateShader(stage);
    const char* const parts[] = {version_source, defines.c_str(), source};
    glShaderSource(shader, 3, parts, nullptr);
    glCompileShader(shader);
    int compiled = 0;
    glGetShaderiv(shader, GL_COMPILE_STATUS, &compiled);
    if (compiled)
        return shader;
    log = log_of(shader, glGetShaderiv, glGetShaderInfoLog);
    glDeleteShader(shader);
    return 0;
}

unsigned link(const std::string& defines, const char* vertex, const char* geometry, const char* fragment,
              std::string& log)
{
    const unsigned shaders[] = {compile(GL_VERTEX_SHADER, defines, vertex, log),
                                geometry ? compile(GL_GEOMETRY_SHADER, defines, geometry, log) : 0,
                                compile(GL_FRAGMENT_SHADER, defines, fragment, log)};
    unsigned program = 0;
    if (shaders[0] && shaders[2] && (shaders[1] || !geometry))
    {
        program = glCreateProgram();
        for (const unsigned shader : shaders)
            if (shader)
                glAttachShader(program, shader);
        glLinkProgram(program);
        int linked = 0;
        glGetProgramiv(program, GL_LINK_STATUS, &linked);
        if (!linked)
        {
            log = log_of(program, glGetProgramiv, glGetProgramInfoLog);
            glDeleteProgram(program);
            program = 0;
        }
    }
    for (const unsigned shader : shaders)
        glDeleteShader(shader); // kept by the program as long as that lives
    return program;
}
}

dgGLPrograms::dgGLPrograms()
{
    glGenVertexArrays(1, &the_empty_array);
}

dgGLPrograms::~dgGLPrograms()
{
    if (the_abandoned)
        return;
    glUseProgram(0);
    for (const dgGLProgram& program : the_programs)
        glDeleteProgram(program.name);
    glDeleteProgram(the_graduated);
    glDeleteProgram(the_keyed);
    glDeleteProgram(the_scaled);
    glDeleteVertexArrays(1, &the_empty_array);
}

int dgGLPrograms::compile_basics(std::string& error)
{
    the_graduated = link("", cover_source, nullptr, graduated_source, the_log);
    the_keyed = link("", cover_source, nullptr, keyed_source, the_log);
    dgGLProgramKind smooth;
    smooth.shading = dgGL_SHADE_SMOOTH;
    if (the_graduated && the_keyed && find({}) && find(smooth))
        return 1;
    error = "a shader does not compile: " + the_log;
    return 0;
}

dgGLProgram* dgGLPrograms::find(const dgGLProgramKind& kind)
{
    dgGLProgram& program = the_programs[static_cast<std::size_t>(kind.number())];
    if (program.made)
        return program.name ? &program : nullptr;
    program.made = 1;

    constexpr const char* shading_names[] = {"#define PLAIN\n", "#define SMOOTH\n", "#define FLAT\n"};
    std::string defines = shading_names[kind.shading];
    if (kind.depth_cueing)
        defines += "#define CUED\n";
    if (kind.line_style)
        defines += "#define STYLED\n";
    if (kind.two_coloured)
        defines += "#define TWO_COLOURED\n";
    if (kind.passed_colour)
        defines += "#define PASSED_COLOUR\n";
    if (kind.sectioned)
        defines += "#define SECTIONED\n";
    if (kind.curved)
        defines += "#define CURVED\n";
    program.name = link(defines, vertex_source, kind.wide_lines ? wide_line_source : nullptr, fragment_source, the_log);
    if (!program.name)
        return nullptr;
    const auto location = [&](const char* name) { return glGetUniformLocation(program.name, name); };
    program.model_to_clip = location("model_to_clip");
    program.model_to_view = location("model_to_view");
    program.normal_to_view = location("normal_to_view");
    program.front_colour = location("front_colour");
    program.back_colour = location("back_colour");
    program.cue = location("cue");
    program.cue_colour = location("cue_colour");
    program.view_port = location("view_port");
    program.line_width = location("line_width");
    program.line_style = location("line_style");
    program.point_size = location("point_size");
    program.section = location("section");
    return &program;
}

void dgGLPrograms::use(unsigned name)
{
    if (name != the_current)
        glUseProgram(name);
    the_current = name;
}

void dgGLPrograms::draw_graduated(const float (&bottom)[3], const float (&top)[3], int low, int high)
{
    use(the_graduated);
    glUniform3fv(glGetUniformLocation(the_graduated, "bottom"), 1, bottom);
    glUniform3fv(glGetUniformLocation(the_graduated, "top"), 1, top);
    glUniform2f(glGetUniformLocation(the_graduated, "rows"), static_cast<float>(low),
                high > low ? 1.0f / static_cast<float>(high - low) : 0.0f);
    glBindVertexArray(the_empty_array);
    glDrawArrays(GL_TRIANGLES, 0, 3);
}

void dgGLPrograms::draw_keyed(unsigned texture, const dgGLPixels& pixels)
{
    // The current program belongs to the context, which may be another one than the device's.
    glUseProgram(the_keyed);
    glUniform1i(glGetUniformLocation(the_keyed, "layer"), 0);
    draw_texture(texture, pixels);
    glUseProgram(0);
    the_current = 0;
}

void dgGLPrograms::draw_scaled(unsigned texture, float factor, const dgGLPixels& pixels)
{
    if (!the_scaled)
        the_scaled = link("", cover_source, nullptr, scaled_source, the_log);
    use(the_scaled);
    glUniform1i(glGetUniformLocation(the_scaled, "layer"), 0);
    glUniform1f(glGetUniformLocation(the_scaled, "factor"), factor);
    glBindVertexArray(the_empty_array);
    draw_texture(texture, pixels);
}

void dgGLPrograms::draw_texture(unsigned texture, const dgGLPixels& pixels)
{
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, texture);
    glEnable(GL_SCISSOR_TEST);
    glScissor(pixels.x, pixels.y, pixels.width, pixels.height);
    glViewport(pixels.x, pixels.y, pixels.width, pixels.height);
    glDrawArrays(GL_TRIANGLES, 0, 3);
    glBindTexture(GL_TEXTURE_2D, 0);
}
