#include "gsStructureCallibration.h"

#include "apHighResTime.h"
#include "dgPrimitiveRun.h"
#include "dgRenderer.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{
// Where the sample starts, and by how much it may grow from one pass to the next.
constexpr double first_share = 1 / 1024.0;
constexpr double largest_growth = 8;

// How much of the time left a piece may take. The first is one primitive, for scenes of a few that are slow. Waiting
// for a piece costs time that a frame drawn at once does not take, so that pieces are few: long at first, and shorter
// as the time runs out. The shortest ones are a share of the frame.
constexpr double piece_of_time_left = 0.75;
constexpr double last_piece = 0.05;
constexpr double smallest_piece = 1 / 1000.0;
// A frame waits for what was ordered before it, as erasing, which does not grow with what is drawn. Where other work
// has held that up, so much of the frame counts for it.
constexpr double most_waited = 0.5;
constexpr long long first_piece = 1;
constexpr int piece_growth = 64;
}

gsStructureCallibration::gsStructureCallibration(double frame_time) : the_frame_time(frame_time) {}

void gsStructureCallibration::start_network(dgRenderer& renderer, const dgStructure*)
{
    const int limited = the_frame_time > 0;
    the_elapsed = 0;
    the_in_frame_time = 0;
    for (int kind : {0, 1})
        the_drawn[kind] = the_total[kind] = 0;
    the_share_done = 0;
    the_share_aim = limited ? first_share : 1;
    the_first_pass = 1;
    the_out_of_time = 0;
    the_piece = limited ? first_piece : std::numeric_limits<long long>::max();
    the_unread = 0;
    the_small_runs = 0;
    the_waited = 0;
    the_start = apHighResTime::time();
    if (!limited)
        return;
    renderer.finish();
    const double now = apHighResTime::time();
    the_waited = std::min(apHighResTime::time_diff(the_start, now), most_waited * the_frame_time);
    the_start = now - the_waited;
}

void gsStructureCallibration::run(dgRenderer& renderer, const dgPrimitiveRun& run)
{
    const dgRunSampling& sampling = run.sampling();
    const int kind = run.topology == dgTOPOLOGY_TRIANGLES;
    const int features = sampling.features();
    count(run.topology, features, 1);
    if (the_out_of_time)
        return;
    the_spans.clear();
    if (sampling.indivisible())
    {
        if (is_taken(features))
            the_spans.push_back({0, features});
        ++the_small_runs;
    }
    else
    {
        const auto end_of = [features](double share) { return static_cast<int>(std::lround(features * share)); };
        sampling.sample(end_of(the_share_done), end_of(the_share_aim), the_spans);
    }
    draw(renderer, run, kind);
}

void gsStructureCallibration::count(dgTopology topology, int features, int runs)
{
    if (the_first_pass)
        the_total[topology == dgTOPOLOGY_TRIANGLES] += static_cast<long long>(features) * runs;
}

// Whether the next indivisible run is drawn in this pass.
bool gsStructureCallibration::is_taken(int features) const
{
    const double place = dg_even_sequence(the_small_runs);
    return features && place >= the_share_done && place < the_share_aim;
}

int gsStructureCallibration::passes_by(dgTopology topology, int features, int runs)
{
    int passed = the_out_of_time ? runs : 0;
    for (; passed < runs && !is_taken(features); ++passed)
        ++the_small_runs;
    count(topology, features, passed);
    return passed;
}

void gsStructureCallibration::draw(dgRenderer& renderer, const dgPrimitiveRun& run, int kind)
{
    the_piece_spans.clear();
    const auto draw_piece = [&]
    {
        if (!the_piece_spans.empty())
            renderer.draw_features(run, the_piece_spans);
        the_piece_spans.clear();
    };
    for (dgFeatureSpan span : the_spans)
    {
        while (span.count > 0 && !the_out_of_time)
        {
            const int count = static_cast<int>(std::min<long long>(span.count, the_piece - the_unread));
            the_piece_spans.push_back({span.first, count});
            span.first += count;
            span.count -= count;
            the_drawn[kind] += count;
            the_unread += count;
            if (the_unread < the_piece)
                continue;
            draw_piece();
            read_clock(renderer);
        }
    }
    draw_piece();
}

void gsStructureCallibration::read_clock(dgRenderer& renderer)
{
    renderer.finish();
    the_elapsed = apHighResTime::time_diff(the_start, apHighResTime::time());
    the_unread = 0;
    if (!(the_frame_time > 0))
        return;
    the_out_of_time = the_elapsed >= the_frame_time;
    long long piece = piece_growth * the_piece;
    if (the_elapsed > the_waited)
    {
        const double fitting =
            static_cast<double>(drawn()) * (the_frame_time - the_elapsed) / (the_elapsed - the_waited);
        the_in_frame_time = static_cast<double>(drawn()) + fitting;
        const double next =
            the_frame_time - the_elapsed < last_piece * the_frame_time ? fitting : fitting * piece_of_time_left;
        piece = std::min(piece, static_cast<long long>(std::max(next, the_in_frame_time * smallest_piece)));
    }
    the_piece = std::max(piece, 1ll);
}

int gsStructureCallibration::another_pass(dgRenderer&)
{
    the_first_pass = 0;
    the_small_runs = 0;
    the_share_done = the_share_aim;
    if (the_out_of_time || the_share_done >= 1)
        return 0;
    // Aimed a little short of the time left, so that the last pass, which the end of the time cuts off in the middle of
    // the network, draws little.
    double aim = the_share_done * largest_growth;
    if (the_in_frame_time > 0)
        aim = std::min(aim, the_share_done * 0.97 * the_in_frame_time / static_cast<double>(std::max(drawn(), 1ll)));
    the_share_aim = std::min(1.0, std::max(aim, the_share_done * 1.02));
    return 1;
}

void gsStructureCallibration::end_network(dgRenderer& renderer)
{
    // Also what draws by itself takes time, though it counts as nothing.
    if (!the_out_of_time)
        read_clock(renderer);
}

int gsStructureCallibration::element(dgRenderer&, const dgGraphicalElement&)
{
    return the_first_pass;
}
