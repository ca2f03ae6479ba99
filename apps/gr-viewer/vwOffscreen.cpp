#include "vwOffscreen.h"

#include "vwBindings.h"
#include "vwFonts.h"
#include "vwLoading.h"
#include "vwModel.h"
#include "vwOptions.h"
#include "vwPlayer.h"
#include "vwReport.h"
#include "vwResources.h"
#include "vwScene.h"
#include "vwSession.h"
#include "vwSessionClock.h"
#include "vwTiles.h"

#include "flMessages.h"
#include "flOutputFile.h"
#include "flPath.h"
#include "pcPictureFile.h"

#include "apNumber.h"
#include "dgClientStructure.h"
#include "dgGLDevice.h"
#include "dgGLWindow.h"
#include "dgRenderer.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "giTriBlock.h"
#include "gwHeadlessWindow.h"
#include "gwResourceDB.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <optional>
#include <ostream>

namespace
{
constexpr int tile_size = 4096; // pixels

std::string size_text(int width, int height)
{
    return std::to_string(width) + " x " + std::to_string(height) + " pixels";
}

// A window is smaller than it was asked to be where its surfaces cannot be made.
bool has_size(const dgGLWindow& window, int width, int height, std::string& error)
{
    if (window.width() == width && window.height() == height)
        return true;
    error = "a window of " + size_text(width, height) + " is more than OpenGL or its memory allows";
    return false;
}

// What drivers compile and set up for their first surface is made ready by drawing one.
void draw_something(dgGLWindow& window)
{
    auto* block = new giTriBlock;
    for (const giPoint3& node : {giPoint3(0, 0, 0), giPoint3(1, 0, 0), giPoint3(0, 1, 0)})
        block->nodes().append(node);
    block->triangles().emplace_back(0, 1, 2);
    block->create_normals().assign(3, giVector3(0, 0, 1));
    const dgRef<dgClientStructure> root(new dgClientStructure);
    root->add(new dgTriangleBlock(block, 1));
    dgRenderer renderer(&window, nullptr);
    dgView view(&renderer);
    view.root(root.get());
    view.view_bbox();
    view.erase(dgERASE_ZBUFFER_YES);
    view.render_network(nullptr);
    renderer.finish();
}

// Plays on framebuffers and writes the pictures to a folder.
class FolderPlayer : public vwPlayer
{
public:
    FolderPlayer(vwSessionClock& clock, vwScene& scene, gwHeadlessWindow& area, dgGLWindow& window,
                 const vwOptions& options, vwReport& report)
        : vwPlayer(clock, scene, area), the_area(area), the_window(window), the_options(options),
          the_folder(options.out), the_report(report)
    {}
    const std::string& error() const { return the_error; }

protected:
    int resize(int width, int height) override
    {
        the_area.resize(width, height);
        the_window.resize(width, height);
        return has_size(the_window, width, height, the_error);
    }
    void read_picture(dgImage& image) override { the_window.read_front(image); }
    int keep_picture(vwPicture& picture) override
    {
        const std::string file =
            the_options.output.empty() ? the_folder + "/" + picture.name + ".png" : the_options.output;
        if (!vw_keeps_inputs(the_options, file, the_error))
            return 0;
        if (!the_window.device().no_errors())
        {
            the_error = "OpenGL failed before the picture '" + picture.name +
                        "': the memory for graphics may be too small for the model or the window";
            return 0;
        }
        the_report.pictures.push_back({picture.name, picture.session_time, picture.image.width, picture.image.height});
        return pc_write_png(file, picture.image, the_error);
    }

private:
    gwHeadlessWindow& the_area;
    dgGLWindow& the_window;
    const vwOptions& the_options;
    std::string the_folder;
    vwReport& the_report;
    std::string the_error;
};

// Of nothing but a picture as the viewer first shows it, with edges that are smooth where that is asked for.
vwSession one_picture(const std::string& name)
{
    vwSession session;
    session.steps.resize(2);
    session.steps[0].kind = vwSTEP_IDLE;
    session.steps[1].kind = vwSTEP_PICTURE;
    session.steps[1].name = name;
    return session;
}

bool read_session(const std::string& file, vwSession& session, std::string& error)
{
    std::ifstream stream;
    if (!fl_open_for_reading(file, stream, error))
        return false;
    std::string complaint;
    if (vw_read_session(stream, session, complaint))
        return true;
    error = fl_name(file) + ": " + complaint;
    return false;
}

bool stands_still(const vwSession& session)
{
    return std::all_of(session.steps.begin(), session.steps.end(),
                       [](const vwStep& step) {
                           return step.kind == vwSTEP_PICTURE || step.kind == vwSTEP_RESIZE || step.kind == vwSTEP_IDLE;
                       });
}

bool make_folder(const std::string& folder, std::string& error)
{
    std::error_code failure;
    std::filesystem::create_directories(fl_path(folder), failure);
    if (!failure)
        return true;
    error = fl_name(folder) + ": the folder cannot be made: " + failure.message();
    return false;
}

void add_facts(vwReport& report, const vwOptions& options, const vwSession& session, const vwModel& model,
               const dgGLDevice& device)
{
    report.title = "gr-viewer: " + model.names();
    report.facts = {{"Model", model.names() + ": " + std::to_string(model.n_blocks()) + " blocks, " +
                                  std::to_string(model.n_triangles()) + " triangles"},
                    {"Session", options.play + ", " + std::to_string(session.steps.size()) + " steps, " +
                                    ap_number_text(session.steps.empty() ? 0 : session.steps.back().end_time(), 2) +
                                    " s"},
                    {"Window", size_text(session.width, session.height) + ", " + std::to_string(session.views) +
                                   (session.views == 1 ? " view" : " views")},
                    {"Drawn by", device.name()}};
}

int write_large_picture(const vwOptions& options, vwScene& scene, dgGLWindow& window, int width, int height,
                        std::string& error)
{
    dgImage image;
    vw_draw_picture(scene, window, width, height, options.transparent, image);
    if (!vw_keeps_inputs(options, options.output, error))
        return 0;
    if (window.device().no_errors())
        return pc_write_png(options.output, image, error, options.transparent);
    error = "OpenGL failed: the memory for graphics may be too small for the model";
    return 0;
}

int write_report(const std::string& file, const vwReport& report, std::string& error)
{
    flOutputFile output;
    if (!output.open(file, error))
        return 0;
    vw_write_report(output.stream(), report);
    return output.commit(error);
}
}

int vw_play_offscreen(const vwOptions& options, std::ostream& messages, std::string& error)
{
    gwResourceDB db;
    vwSession session;
    vwModel model(options.up);
    if (!vw_load_resources(options.resources, options.bindings, db, error, &std::cerr) ||
        (options.output.empty() && !read_session(options.play, session, error)))
        return 0;
    if (!options.output.empty())
        session = one_picture(options.output);
    vwLoading loading(model, options.files);
    if (options.width)
    {
        session.width = options.width;
        session.height = options.height;
    }
    if (options.views)
        session.views = options.views;

    // What is larger than OpenGL's surfaces, or than is good for memory, is drawn by parts.
    const int tiled = !options.output.empty() && std::max(session.width, session.height) > tile_size;
    const int width = tiled ? std::min(session.width, tile_size) : session.width;
    const int height = tiled ? std::min(session.height, tile_size) : session.height;

    // While the files are read.
    std::string device_error;
    const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(device_error);
    std::optional<dgGLWindow> its_window;
    if (device)
        draw_something(its_window.emplace(device, width, height));
    if (!loading.finish(error))
        return 0;
    if (!device)
    {
        error = "nothing can be drawn off-screen: " + device_error;
        return 0;
    }
    model.note_flaws(std::cerr);
    if (options.output.empty() && !make_folder(options.out, error))
        return 0;
    if (stands_still(session))
        device->make_no_levels();
    vwReport report;
    add_facts(report, options, session, model, *device);
    dgGLWindow& window = *its_window;
    if (!has_size(window, width, height, error))
        return 0;
    gwHeadlessWindow area(session.width, session.height);
    vwSessionClock clock;
    vwSceneSettings settings = options.scene;
    settings.views = session.views;
    settings.smooth_edges = options.smooth_edges > 0;
    vwScene scene(&window, window.overlay(), area, db, model.root(), settings);
    scene.parts(model.parts(), model.placing());
    vw_offer_font(options, scene);
    scene.overlay().help_text(vw_help_text(db));
    if (options.scene.axes || options.scene.edges)
        scene.redraw();
    if (!vw_add_text(options, scene, model, error))
        return 0;
    if (!options.output.empty() && (tiled || options.transparent))
        return write_large_picture(options, scene, window, session.width, session.height, error);
    FolderPlayer player(clock, scene, area, window, options, report);
    if (!player.play(session))
    {
        error = player.error();
        return 0;
    }
    if (!options.output.empty())
        return 1;
    report.frame_times = scene.frame_times();
    const std::string page = options.out + "/index.html";
    if (!vw_keeps_inputs(options, page, error) || !write_report(page, report, error))
        return 0;
    const vwFrameSummary frames = report.frame_times.summary();
    messages << "gr-viewer: " << report.pictures.size() << " pictures and " << page << " written; " << frames.count
             << " frames, median " << ap_number_text(frames.median * 1000, 1) << " ms\n";
    return 1;
}
