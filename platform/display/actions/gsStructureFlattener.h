#pragma once

#include "dgEnums.h"
#include "dgRef.h"
#include "dgStructure.h"
#include "giXform3.h"
#include "gsRenderAction.h"

#include <array>

class dgGraphicalAttribute;

/// Draws a whole network and writes an equivalent of it without calls: the network's own primitives one after the
/// other, with only the changes of attributes and placing that show between them, so that primitives of different
/// structures are drawn together. Drawing the target gives the same pixels.
///
/// The target shares the primitives, and with them what drivers keep of them; nothing of theirs is copied.
class DG_EXPORT gsStructureFlattener : public gsRenderAction
{
public:
    /// root is what is drawn; target is empty and gets the equivalent when root is drawn next. Once writing, drawing
    /// left aside, has taken longer than frame_time in seconds, the target becomes a call of root; -1 is no limit.
    gsStructureFlattener(dgStructure* root, dgStructure* target, double frame_time);
    ~gsStructureFlattener() override;

    /// 1 when a picture at rest should be drawn from the network: something in it draws by itself, the writing was
    /// given up, or the network has changed since. root_stamp is the root's network_stamp() at the time that is meant.
    int final_refresh_non_flattened() const;
    int final_refresh_non_flattened(unsigned long long root_stamp) const;

    /// 1 while the root and all that it calls are as they were when they were written.
    int flat_root_matches() const;
    int flat_root_matches(unsigned long long root_stamp) const { return the_written && root_stamp == the_root_stamp; }

    void start_network(dgRenderer& renderer, const dgStructure* structure) override;
    void end_network(dgRenderer& renderer) override;
    void run(dgRenderer& renderer, const dgPrimitiveRun& run) override;
    int element(dgRenderer& renderer, const dgGraphicalElement& element) override;

private:
    void write_run(const dgRenderer& renderer, const dgPrimitiveRun& run);
    void write_state(const dgRenderer& renderer, dgGraphicalPrimitiveType type);
    void write_attribute(const dgRenderer& renderer, int type);
    void write_back_colour(const dgRenderer& renderer);
    void write(dgGraphicalAttribute* attribute);
    void check_time(double started);
    void give_up();

    dgRef<dgStructure> the_root;
    dgRef<dgStructure> the_target;
    double the_frame_time;
    double the_written_time = 0; // seconds spent on writing
    unsigned long long the_root_stamp = 0;
    int the_writing = 0;
    int the_written = 0;
    int the_draws_by_itself = 0;
    int the_given_up = 0;
    giXform3 the_transform;                                                            // in force in the target
    std::array<dgRef<dgGraphicalAttribute>, dgTYPE_LAST_ATTRIBUTE + 1> the_attributes; // in force, null: the default
};
