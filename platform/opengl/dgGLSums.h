#pragma once

class dgGLPrograms;
struct dgGLPixels;

/// Sums of the colours of pictures of one size, pixel by pixel. A context must be current in every call but the
/// destructor.
///
/// Colours of 8 bits are added as whole numbers of 16 bits, so that pictures that are the same have themselves as their
/// mean to the last bit.
class dgGLSums
{
public:
    /// False when the driver cannot make them.
    bool make(int width, int height);
    bool made() const { return the_texture; }
    void free();

    /// Adds pixels of a texture to the sums, or has these start with them. How the context blends stays.
    void add(dgGLPrograms& programs, unsigned texture, const dgGLPixels& pixels, int anew);

    /// Draws the means of so many pictures into the framebuffer that is bound.
    void put_mean(dgGLPrograms& programs, const dgGLPixels& pixels, int pictures) const;

private:
    unsigned the_texture = 0;
    unsigned the_framebuffer = 0;
};
