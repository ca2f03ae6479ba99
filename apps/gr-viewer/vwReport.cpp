#include "vwReport.h"

#include "apNumber.h"

#include <algorithm>
#include <cmath>
#include <ostream>

namespace
{
constexpr double ms_per_second = 1000;

// The chart's drawing area and its margins, in units of the picture.
constexpr double chart_width = 960, chart_height = 260, left = 56, right = 12, top = 12, bottom = 34;

const char style[] =
    "body{font:15px/1.5 system-ui,sans-serif;margin:2rem auto;max-width:1040px;padding:0 1rem;color:#1c2430;"
    "background:#f7f8fa}h1{font-size:1.5rem}h2{font-size:1.15rem;margin-top:2rem}"
    "table{border-collapse:collapse}td,th{padding:.2rem 1rem .2rem 0;text-align:left;vertical-align:top}"
    "td.n,th.n{text-align:right;font-variant-numeric:tabular-nums}"
    "figure{display:inline-block;margin:0 1rem 1rem 0;width:310px;vertical-align:top}"
    "figure img{width:100%;border-radius:4px;border:1px solid #cfd5dd}figcaption{font-size:.85rem;color:#56606e}"
    "svg{width:100%;height:auto;background:#fff;border:1px solid #cfd5dd;border-radius:4px}"
    "svg text{font:11px system-ui,sans-serif;fill:#3b4350;paint-order:stroke;stroke:#fff;stroke-width:3px}";

std::string ms_text(double seconds)
{
    return ap_number_text(seconds * ms_per_second, 2);
}

// 1, 2 or 5 times a power of ten, so that about n of them make up range.
double round_step(double range, int n)
{
    const double raw = std::max(range, 1e-9) / n;
    const double power = std::pow(10.0, std::floor(std::log10(raw)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= raw)
            return factor * power;
    return 10 * power;
}

// Places times on the horizontal and milliseconds on the vertical axis.
struct Axes
{
    double first_time, last_time, top_ms;

    double x(double time) const
    {
        return left + (chart_width - left - right) * (time - first_time) / std::max(last_time - first_time, 1e-9);
    }
    double y(double ms) const { return chart_height - bottom - (chart_height - top - bottom) * ms / top_ms; }
};

void write_line(std::ostream& os, double x1, double y1, double x2, double y2, const char* look)
{
    os << "<line x1=\"" << ap_number_text(x1, 1) << "\" y1=\"" << ap_number_text(y1, 1) << "\" x2=\""
       << ap_number_text(x2, 1) << "\" y2=\"" << ap_number_text(y2, 1) << "\" " << look << "/>\n";
}

void write_text(std::ostream& os, double x, double y, const char* anchor, const std::string& text)
{
    os << "<text x=\"" << ap_number_text(x, 1) << "\" y=\"" << ap_number_text(y, 1) << "\" text-anchor=\"" << anchor
       << "\">" << text << "</text>\n";
}

void write_grid(std::ostream& os, const Axes& axes)
{
    const char* grid_look = "stroke=\"#e3e7ec\"";
    const double ms_step = round_step(axes.top_ms, 5);
    for (int i = 0; i * ms_step <= axes.top_ms * 1.0001; ++i)
    {
        write_line(os, left, axes.y(i * ms_step), chart_width - right, axes.y(i * ms_step), grid_look);
        write_text(os, left - 6, axes.y(i * ms_step) + 4, "end", ap_number_text(i * ms_step) + " ms");
    }
    const double time_step = round_step(axes.last_time - axes.first_time, 8);
    for (double time = std::ceil(axes.first_time / time_step) * time_step; time <= axes.last_time + 1e-9;
         time += time_step)
        write_text(os, axes.x(time), chart_height - bottom + 18, "middle", ap_number_text(time, 2) + " s");
}

// The frame rates that look fluid, over the frames.
void write_goals(std::ostream& os, const Axes& axes)
{
    const char* goal_look = "stroke=\"#c2410c\" stroke-dasharray=\"4 4\"";
    for (const double frames_per_second : {60.0, 30.0})
    {
        const double ms = ms_per_second / frames_per_second;
        if (ms > axes.top_ms)
            continue;
        write_line(os, left, axes.y(ms), chart_width - right, axes.y(ms), goal_look);
        write_text(os, chart_width - right - 4, axes.y(ms) - 4, "end",
                   ap_number_text(frames_per_second, 0) + " frames a second");
    }
}

void write_chart(std::ostream& os, const vwFrameTimes& times)
{
    const std::vector<vwFrame>& frames = times.frames();
    const double longest = times.summary().longest * ms_per_second;
    const Axes axes = {frames.front().session_time, frames.back().session_time, std::max(longest * 1.1, 1.0)};
    os << "<svg viewBox=\"0 0 " << chart_width << ' ' << chart_height
       << "\" role=\"img\" aria-label=\"Time of every frame over the session\">\n";
    write_grid(os, axes);
    for (const vwFrame& frame : frames)
    {
        const double x = axes.x(frame.session_time);
        write_line(os, x, axes.y(0), x, axes.y(frame.seconds * ms_per_second), "stroke=\"#2563eb\" stroke-width=\"2\"");
    }
    write_goals(os, axes);
    os << "</svg>\n";
}

void write_frame_times(std::ostream& os, const vwFrameTimes& times)
{
    const vwFrameSummary summary = times.summary();
    os << "<h2>Frame times</h2>\n";
    if (!summary.count)
    {
        os << "<p>No frame was drawn during the session.</p>\n";
        return;
    }
    write_chart(os, times);
    os << "<table><tr><th class=\"n\">frames</th><th class=\"n\">mean ms</th><th class=\"n\">median ms</th>"
          "<th class=\"n\">95 % below ms</th><th class=\"n\">longest ms</th></tr>\n<tr><td class=\"n\">"
       << summary.count << "</td><td class=\"n\">" << ms_text(summary.mean) << "</td><td class=\"n\">"
       << ms_text(summary.median) << "</td><td class=\"n\">" << ms_text(summary.slow) << "</td><td class=\"n\">"
       << ms_text(summary.longest) << "</td></tr></table>\n"
       << "<p>Measured on the real clock from the event to the finished picture; the horizontal axis is the session's "
          "own time.</p>\n";
}
}

std::string vw_html_text(const std::string& text)
{
    std::string safe;
    for (const char c : text)
        switch (c)
        {
        case '&': safe += "&amp;"; break;
        case '<': safe += "&lt;"; break;
        case '>': safe += "&gt;"; break;
        case '"': safe += "&quot;"; break;
        default: safe += c;
        }
    return safe;
}

void vw_write_report(std::ostream& os, const vwReport& report)
{
    const std::string title = vw_html_text(report.title);
    os << "<!doctype html>\n<html lang=\"en\"><head><meta charset=\"utf-8\"><title>" << title << "</title>\n<style>"
       << style << "</style></head>\n<body><h1>" << title << "</h1>\n<table>\n";
    for (const vwReport::Row& fact : report.facts)
        os << "<tr><th>" << vw_html_text(fact.what) << "</th><td>" << vw_html_text(fact.value) << "</td></tr>\n";
    os << "</table>\n<h2>Pictures</h2>\n";
    if (report.pictures.empty())
        os << "<p>The session takes no picture.</p>\n";
    for (const vwReport::Picture& picture : report.pictures)
    {
        const std::string name = vw_html_text(picture.name);
        os << "<figure><a href=\"" << name << ".png\"><img src=\"" << name << ".png\" width=\"" << picture.width
           << "\" height=\"" << picture.height << "\" style=\"height:auto\" alt=\"" << name << "\"></a><figcaption>"
           << name << ", at " << ap_number_text(picture.session_time, 3) << " s</figcaption></figure>\n";
    }
    write_frame_times(os, report.frame_times);
    os << "</body></html>\n";
}
