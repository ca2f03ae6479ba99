#include "vwBench.h"

#include "vwModel.h"
#include "vwOptions.h"
#include "vwStandardView.h"

#include "grViewRendererFast.h"
#include "gr_time_refresh.h"

#include "apNumber.h"
#include "dgGLDevice.h"
#include "dgGLWindow.h"
#include "dgRenderer.h"
#include "dgView.h"

#include <iomanip>
#include <iostream>
#include <memory>
#include <ostream>
#include <vector>

namespace
{
constexpr double step_radians = 0.05;
constexpr int standard_width = 1280, standard_height = 720;
constexpr double standard_framerate = 20;

struct Result
{
    std::string probe;
    int frames = 0;
    double seconds = 0;
    int picked = -1; // -1: nothing was picked
};

Result run_probe(const std::string& probe, dgView& view, double duration)
{
    Result result{probe};
    if (probe == "static")
        gr_time_static_refresh(&view, duration, result.frames, result.seconds);
    else if (probe == "rotate")
        gr_time_rotating_refresh(&view, duration, gi_Y_AXIS, step_radians, result.frames, result.seconds);
    else if (probe == "zoom")
    {
        const double factors[] = {1, 1.5, 2, 3, 2, 1.5, 1, 0.7};
        gr_time_zooming_refresh(&view, duration, factors, 8, result.frames, result.seconds);
    }
    else if (probe == "fast")
        gr_time_fast_rotating_refresh(&view, duration, gi_Y_AXIS, step_radians, result.frames, result.seconds);
    else if (probe == "pick")
        gr_time_pick(&view, duration, result.frames, result.seconds, result.picked, dgPICK_EXACT, 0, 1, 1);
    return result;
}

double per_second(const Result& result)
{
    return result.seconds > 0 ? result.frames / result.seconds : 0;
}

double milliseconds(const Result& result)
{
    return result.frames > 0 ? 1000 * result.seconds / result.frames : 0;
}

void write_table(std::ostream& out, const std::vector<Result>& results, double network_seconds)
{
    out << std::left << std::setw(10) << "probe" << std::right << std::setw(8) << "frames" << std::setw(10) << "seconds"
        << std::setw(12) << "frames/s" << std::setw(12) << "ms/frame" << std::setw(10) << "picked"
        << "\n";
    for (const Result& result : results)
        out << std::left << std::setw(10) << result.probe << std::right << std::setw(8) << result.frames
            << std::setw(10) << ap_number_text(result.seconds, 2) << std::setw(12)
            << ap_number_text(per_second(result), 1) << std::setw(12) << ap_number_text(milliseconds(result), 2)
            << std::setw(10) << (result.picked < 0 ? "-" : std::to_string(result.picked)) << "\n";
    out << "drawing the network once: " << ap_number_text(1000 * network_seconds, 2) << " ms\n";
}

// Names of files may hold anything.
std::string json_text(const std::string& text)
{
    std::string quoted = "\"";
    for (const char c : text)
    {
        if (static_cast<unsigned char>(c) < 0x20)
            continue;
        if (c == '"' || c == '\\')
            quoted += '\\';
        quoted += c;
    }
    return quoted + "\"";
}

void write_json(std::ostream& out, const std::vector<Result>& results, double network_seconds, const vwModel& model,
                const dgGLWindow& window, const std::string& device)
{
    out << "{\"model\": " << json_text(model.names()) << ", \"triangles\": " << model.n_triangles()
        << ", \"width\": " << window.width() << ", \"height\": " << window.height()
        << ", \"device\": " << json_text(device)
        << ", \"minimum_framerate\": " << ap_number_text(grViewRendererFast::minimum_framerate(), 3)
        << ", \"render_network_seconds\": " << ap_number_text(network_seconds, 6) << ", \"probes\": [";
    for (std::size_t i = 0; i < results.size(); ++i)
    {
        const Result& result = results[i];
        out << (i ? ", " : "") << "{\"probe\": " << json_text(result.probe) << ", \"frames\": " << result.frames
            << ", \"seconds\": " << ap_number_text(result.seconds, 6)
            << ", \"frames_per_second\": " << ap_number_text(per_second(result), 3);
        if (result.picked >= 0)
            out << ", \"picked\": " << result.picked;
        out << "}";
    }
    out << "]}\n";
}
}

int vw_bench(const vwOptions& options, std::ostream& out, std::string& error)
{
    vwModel model;
    if (!model.add_files(options.files, std::cerr, error))
        return 0;
    const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
    if (!device)
    {
        error = "nothing can be drawn off-screen: " + error;
        return 0;
    }
    dgGLWindow window(device, options.width ? options.width : standard_width,
                      options.height ? options.height : standard_height);
    if (options.width && window.width() != options.width)
    {
        error = "a window of this size is more than OpenGL or its memory allows";
        return 0;
    }
    dgRenderer renderer(&window, nullptr);
    dgView view(&renderer);
    view.root(&model.root());
    vw_standard_view(view, 0);
    grViewRendererFast::minimum_framerate(options.scene.framerate > 0 ? options.scene.framerate : standard_framerate);

    // The first drawing copies the geometry and compiles the programs.
    renderer.select_buffer(dgBACK_BUFFER);
    double network_seconds = 0;
    for (int i = 0; i < 2; ++i)
        gr_time_render_network(&view, network_seconds);
    std::vector<Result> results;
    for (const std::string& probe : options.bench)
        results.push_back(run_probe(probe, view, options.seconds));
    write_table(out, results, network_seconds);
    write_json(out, results, network_seconds, model, window, device->name());
    return 1;
}
