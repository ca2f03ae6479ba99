#include "dgView.h"

#include "dgDrawState.h"
#include "dgDriver.h"
#include "dgGraphicalElement.h"
#include "dgPickHits.h"
#include "dgPickResult.h"
#include "dgPicker.h"
#include "dgRenderer.h"
#include "dgS.h"
#include "dgSelectedDriver.h"
#include "dgShownWalk.h"
#include "dgWindow.h"
#include "gsHeap.h"

#include <algorithm>
#include <cassert>
#include <ostream>
#include <utility>

UT_DEFINE_TYPE(dgView, dgBase);

dgRenderNetworkAction* dgView::the_global_render_network_action = nullptr;

namespace
{
constexpr unsigned depth_clamp = 0x864F; // GL_DEPTH_CLAMP: what lies beyond the planes is drawn as if it lay on them

// Whether planes that are fitted to a network cut what is drawn over it, such as an icon. Moving them for it would not
// do: the depths already drawn are measured between them.
bool lies_beyond(const dgStructure& structure, const dgStructure& network)
{
    if (&structure == &network)
        return false;
    const giBox3& box = structure.bounding_box();
    const giBox3& fitted = network.bounding_box();
    return !box.empty() && !fitted.empty() && !(fitted.contains(box.low()) && fitted.contains(box.high()));
}
}

dgView::dgView(dgRenderer* renderer) : the_renderer(renderer), the_call_list(this)
{
    the_camera.the_call_list = &the_call_list;
    if (renderer)
    {
        const giBox2 box = renderer->window_box();
        the_camera.view_port_dc(box);
        the_camera.window_size(giVector2(box.width() + 1, box.height() + 1));
    }
    dgS::all_views().add_last(this);
    gsHeap::object_add(this);
}

dgView::~dgView()
{
    the_call_list.fire(DG_VIEW_TO_BE_DELETED);
    dgS::all_views().remove(this);
    gsHeap::object_remove(this);
}

void dgView::unreference()
{
    lower_reference_count();
}

int dgView::renderer_width() const
{
    return the_renderer ? the_renderer->window(0)->width() : 1;
}

int dgView::renderer_height() const
{
    return the_renderer ? the_renderer->window(0)->height() : 1;
}

void dgView::looks(dgLooks* looks)
{
    if (looks == the_looks.get())
        return;
    the_looks = dgRef<dgLooks>(looks);
    picture_is_lost();
}

unsigned long long dgView::shown_stamp() const
{
    if (!the_root)
        return 0;
    // One count stamps everything.
    return std::max(the_root->network_stamp(), the_looks ? the_looks->stamp() : 0);
}

void dgView::erase(dgEraseZbuffer zbuffer)
{
    ++the_erasures;
    if (!the_renderer)
        return;
    if (!the_renderer->clipped())
    {
        picture_is_lost();
        the_shows_see_through = 0;
    }
    const dgSelectedDriver main_driver(*the_renderer, 0);
    const dgBackground background = the_shading.graduated_background
                                        ? dgBackground::graduated(the_shading.top_colour, the_shading.bottom_colour)
                                        : dgBackground::plain(the_shading.background_colour);
    the_renderer->begin();
    the_renderer->driver()->clear(the_camera.view_port_dc(), background, dgERASE_FRAMEBUFFER_YES, zbuffer);
    the_renderer->end();
    if (!zbuffer)
        return;
    fit_planes(the_camera);
    the_call_list.fire(DG_VIEW_ERASED);
}

void dgView::render_network(dgStructure* structure)
{
    if (!structure)
        structure = root();
    if (structure)
        draw_network(*structure, 0);
}

void dgView::render_network_normal(dgStructure& structure)
{
    draw_network(structure, 1);
}

void dgView::draw_network(dgStructure& structure, int past_action)
{
    if (!the_renderer)
        return;
    const dgSelectedDriver main_driver(*the_renderer, 0);
    const int whole = &structure == the_root.get() && (past_action || !the_renderer->render_action());
    fit_planes(the_camera);
    begin();
    dgDriver& driver = *the_renderer->driver();
    const bool beyond_planes = !the_user_clip_planes && the_root && lies_beyond(structure, *the_root);
    if (beyond_planes)
        driver.gl_enable(depth_clamp);
    if (past_action)
        the_renderer->draw_structure(structure);
    else
        the_renderer->draw_network(structure);
    if (beyond_planes)
        driver.gl_disable(depth_clamp);
    end();
    the_shows_see_through = the_renderer->drew_see_through() || (!whole && the_shows_see_through);
    // A part of the picture that is drawn anew leaves the rest as it was.
    if (!whole)
        picture_is_lost();
    else if (!the_renderer->clipped())
        picture_is_whole();
}

dgView::Picture dgView::picture() const
{
    return {1,
            the_root ? the_root->network_stamp() : 0,
            the_renderer ? the_renderer->erasures() : 0,
            the_camera.orientation(),
            the_camera.projection_transform(),
            the_camera.view_port_dc(),
            the_camera.front_plane(),
            the_camera.back_plane(),
            the_camera.section()};
}

void dgView::picture_is_whole()
{
    the_picture = picture();
    the_picture.whole = the_renderer && !the_renderer->drew_see_through();
}

int dgView::redraw_parts(const std::vector<dgElementPath>& paths)
{
    if (!the_root || !the_renderer || !the_looks || !the_picture.whole)
        return 0;
    fit_planes(the_camera);
    const Picture now = picture();
    const auto covers = [this](const dgView* view)
    {
        return view != this && view->renderer() == the_renderer &&
               view->camera().view_port_dc().overlap(the_camera.view_port_dc());
    };
    const auto& views = dgS::all_views();
    if (!(now == the_picture) || std::any_of(views.begin(), views.end(), covers))
        return 0;
    if (paths.empty())
        return 1;
    const dgSelectedDriver main_driver(*the_renderer, 0);
    the_looks->redraw_only(paths);
    begin();
    the_renderer->draw_structure(*the_root);
    end();
    the_looks->redraw_only({});
    return !the_renderer->drew_see_through();
}

// Planes that are not the user's are those of the next drawing.
void dgView::fit_planes(dgCamera& camera) const
{
    if (!the_user_clip_planes && the_root)
        camera.clip_bounding_box(the_root->bounding_box(), the_clipping_mode);
}

void dgView::begin()
{
    assert(!the_begun);
    the_begun = 1;
    if (!the_renderer)
        return;
    the_renderer->begin();
    the_renderers_hlhsr_mode = the_renderer->hlhsr_mode();
    the_renderer->set_hlhsr_mode(the_shading.hlhsr_mode);
    the_renderer->cue_colour(the_shading.graduated_background ? the_shading.bottom_colour
                                                              : the_shading.background_colour);
    the_renderer->set_camera(&the_camera);
    the_renderer->looks(the_looks.get(), the_root.get());
    the_renderer->push_structure();
}

void dgView::end()
{
    the_begun = 0;
    if (!the_renderer)
        return;
    the_renderer->pop_structure();
    the_renderer->looks(nullptr, nullptr);
    the_renderer->set_hlhsr_mode(the_renderers_hlhsr_mode);
    the_renderer->end();
    tell_of_camera();
}

// Planes are fitted at every drawing and do not count; nor does what is drawn.
void dgView::tell_of_camera()
{
    Camera now;
    now.orientation = the_camera.orientation();
    now.window = the_camera.view_window();
    now.view_port = the_camera.view_port_dc();
    now.eye =
        the_camera.projection() == dgPROJECTION_PERSPECTIVE ? the_camera.projection_reference_point() : giPoint3();
    if (now == the_camera_shown)
        return;
    the_camera_shown = now;
    the_call_list.fire(DG_CAMERA_SHOWN);
}

void dgView::execute(const dgGraphicalElement& element)
{
    if (the_renderer)
        the_renderer->execute(element);
}

void dgView::execute_structure(const dgStructure& structure)
{
    if (the_renderer)
        the_renderer->draw_structure(structure);
}

// Null where looks make no difference to what is shown.
const dgLooks* dgView::hiding_looks() const
{
    return the_looks && the_looks->hides() ? the_looks.get() : nullptr;
}

giBox3 dgView::shown_box() const
{
    if (!the_root)
        return {};
    if (!hiding_looks())
        return the_root->bounding_box();
    giBox3 box;
    dg_walk_shown(*the_root, the_looks.get(),
                  [&](const dgGraphicalElement& element, const giXform3& to_world)
                  {
                      if (element.kind() != dgELEMENT_ATTRIBUTE)
                          box.merge(element.bounding_box().transform(to_world));
                      return true;
                  });
    return box;
}

void dgView::view_bbox(dgBoundingViewType type)
{
    if (!the_root)
        return;
    const double front = the_camera.front_plane();
    const double back = the_camera.back_plane();
    the_camera.view_bounding_box(shown_box(), type);
    if (the_user_clip_planes)
        the_camera.front_back_plane(front, back);
}

dgPickResult* dgView::pick_all(const dgPickAperture& aperture, dgPickMode mode) const
{
    auto* result = new dgPickResult;
    if (!the_root || !the_renderer)
        return result;
    dgCamera camera(the_camera);
    fit_planes(camera);
    dgPicker(camera, aperture, mode, the_renderer->pick_settings(), the_renderer->text_fonts(), *result)
        .pick(*the_root, hiding_looks());
    return result;
}

std::vector<dgPickHit> dgView::pick_hits(const dgPickAperture& aperture, int features) const
{
    dgPickHits hits;
    if (!the_root || !the_renderer)
        return {};
    dgCamera camera(the_camera);
    fit_planes(camera);
    hits.features = features;
    dgPickSettings settings = the_renderer->pick_settings();
    dgPickResult& result = *new dgPickResult;
    dgPicker picker(camera, aperture, dgPICK_EXACT, settings, the_renderer->text_fonts(), result);
    picker.hits(&hits);
    picker.pick(*the_root, hiding_looks());
    result.release();
    std::stable_sort(hits.found.begin(), hits.found.end(),
                     [](const dgPickHit& a, const dgPickHit& b) { return a.depth > b.depth; });
    return std::move(hits.found);
}

void dgView::print(std::ostream& os, int level, int indent) const
{
    const std::string blanks(static_cast<std::size_t>(indent), ' ');
    const giBox2& port = the_camera.view_port_dc();
    os << blanks << "dgView {\n";
    os << blanks << "  view port is " << port.low().x() << " " << port.low().y() << " " << port.high().x() << " "
       << port.high().y() << "\n";
    os << blanks << "  scale is " << the_camera.scale() << "\n";
    if (level >= 1 && the_root)
        the_root->print(os);
    os << blanks << "}\n";
}
