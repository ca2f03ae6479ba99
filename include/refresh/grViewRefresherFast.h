#pragma once

#include "grViewRefresher.h"

#include <memory>
#include <vector>

class grViewRendererFast;

/// Draws each view at the frame rate asked for through a fast view renderer, and completes the picture while nothing
/// else happens. The end of the twiddle draws everything, without icons.
///
/// What a twiddle has learnt can be kept for the next one on the same views: see cache_graphics. Only one refresher of
/// this kind may be active at a time.
class GR_EXPORT grViewRefresherFast : public grViewRefresher
{
public:
    explicit grViewRefresherFast(const dgViewcoDList& views);
    ~grViewRefresherFast() override;

    void refresh() override;
    void idle_refresh() override;
    grIdleAction idle() override;
    void end_twiddle() override;

    /// Whether idle calls complete no picture of these views, because a render-network action or their first renderer
    /// has it so, or because something see-through is in it.
    static int idle_slices_forbidden(const dgViewcoDList& views);

    /// Whether the fast view renderers are kept from one twiddle to the next on the same views; 0 by default. They show
    /// what they have seen until graphics_state_changed. 0 drops them.
    static int cache_graphics();
    static void cache_graphics(int on);

    /// To be called whenever what is displayed changes: drops the renderers that are kept.
    static void graphics_state_changed();

    /// Whether a refresh has begun and no twiddle has ended since.
    static int in_refresh();

    UT_DECLARE_TYPE(grViewRefresherFast, coReceiver);

protected:
    /// Deletes the renderers or keeps them for the next twiddle.
    void finish_with_renderers();
    void view_removed(dgView* view) override;
    int idle_needed() override;

private:
    void make_renderers();
    bool draws_slices() const;
    void refresh_renderer(grViewRendererFast& fast);

    // Grouped by renderer; empty before the first refresh. The cache may share them.
    std::vector<std::shared_ptr<grViewRendererFast>> the_fast_renderers;
    int the_idle_blocked = 0;
};
