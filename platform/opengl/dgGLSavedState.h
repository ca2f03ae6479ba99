#pragma once

#include <array>
#include <vector>

/// The state of an OpenGL context, recorded so that it can be put back: programs, buffers, textures and framebuffers
/// that are bound, capabilities, masks, clear values, blending, viewports, scissor boxes and pixel storage. Costs about
/// two hundred queries of the driver, which wait for nothing. Of the texture units only unit 0 is recorded, of the
/// blending of draw buffers only that of the first one.
class dgGLSavedState
{
public:
    /// Records the state of the current context, in place of what was recorded before.
    void record();

    /// Puts the current context into the state that was recorded.
    void put_back() const;

    /// The state of a new context, but with the viewports and scissor boxes of this one.
    dgGLSavedState initial() const;

private:
    static constexpr std::size_t n_capabilities = 32;
    static constexpr std::size_t n_pixel_storage = 16;
    static constexpr std::size_t n_ints = 22;
    static constexpr std::size_t n_floats = 6;

    // Indexed state (viewports from OpenGL 4.1 on, draw buffers) is set for all indices by the plain calls.
    struct DrawBuffer
    {
        bool blend;
        unsigned char colour_mask[4];
    };
    struct Port
    {
        float box[4];
        double depth[2];
        bool scissor_test;
        int scissor[4];
    };
    struct StencilSide
    {
        int function, reference, value_mask, fail, depth_fail, depth_pass;
    };

    std::array<bool, n_capabilities> the_capabilities;
    std::array<int, n_pixel_storage> the_pixel_storage;
    std::array<std::array<int, 4>, n_ints> the_ints;
    std::array<std::array<float, 4>, n_floats> the_floats;
    std::vector<DrawBuffer> the_draw_buffers;
    std::vector<Port> the_ports;
    StencilSide the_stencil[2]; // front, back
    float the_offset[2];
    int the_clip_control[2];
    int the_active_texture;
    int the_texture; // of unit 0
    int the_sampler;
    std::array<int, 6> the_blending; // equations and factors
};

/// Sets what is drawn and what is there are multiplied with when the first draw buffer blends: colours and opacities.
void dg_gl_blend_factors(unsigned source, unsigned target, unsigned source_alpha, unsigned target_alpha);
