#pragma once

#include "grExport.h"
#include "grIdleAction.h"

#include <memory>

class dgRenderer;
class giVector2;

/// Smooths the edges of a renderer's views that are at rest: their picture becomes the mean of several, each moved by
/// another part of a pixel.
///
/// This takes place in idle time while the renderer accumulates (dgRenderer::accumulate). All is drawn slice by slice
/// in the back buffer, so that what is seen changes only when a mean of 2, 4 or 8 pictures is there. Whatever is drawn,
/// edited, moved or resized meanwhile starts it again from what is then shown. The overlay callback is called over each
/// mean, and rubber bands lie over it as before; what lies between views stays. Renderers that are not double buffered,
/// or have no capability for sums (dgCAPABILITY_ACCUMULATION), are left alone, those whose views forbid slices, and so
/// are those with transparent views that no other one lies under.
class GR_EXPORT grViewSmoother
{
public:
    /// The renderer is not owned and must outlive the object; it has one alone, as two would start each other again.
    /// Neither of them may be destroyed by what is drawn.
    explicit grViewSmoother(dgRenderer& renderer);
    ~grViewSmoother();
    grViewSmoother(const grViewSmoother&) = delete;
    grViewSmoother& operator=(const grViewSmoother&) = delete;

    /// To be called while nothing else is to be done, that is after grTwiddleMan::idle() has answered grIDLE_DONE, and
    /// not while a tool twiddles, whose icon it does not draw; again as long as it answers grIDLE_AGAIN. A call takes
    /// about 5 ms, whatever the scene, which is how long an event may have to wait. It is more where what is to be
    /// drawn takes far longer than what was drawn before it, and where a text, or an element of an application's own,
    /// does: these are drawn whole.
    grIdleAction idle();

    /// Has everything drawn again from the next call on, after changes that nobody else can know of, as of what an
    /// application's elements draw.
    void restart();

    /// 1 when all pictures are in what is seen, as far as the last call of idle() knows.
    int complete() const;

    static constexpr int n_pictures = 8;
    /// Pixels to the right and upwards by which a picture, from 0 on, is moved: the places of the standard pattern of 8
    /// samples, as the Vulkan standard lists them (Standard Sample Locations). No two share a row or a column of
    /// sixteenths of a pixel, and those of the first 2, 4 and 8 pictures lie about the middle of the pixel, so that the
    /// mean does not stand beside the picture before.
    static giVector2 shift(int picture);

private:
    class Work;
    std::unique_ptr<Work> the_work;
};
