#pragma once

#include <vector>

class dgStructure;

/// Frames of a structure and a position in it, the last one pushed on top. Counts nothing.
class gsStructureStack
{
public:
    void push(dgStructure* structure, int position) { the_frames.push_back({structure, position}); }

    /// The functions below, but depth, are for a stack that is not empty.
    void pop() { the_frames.pop_back(); }

    /// Structure and position of the top frame.
    dgStructure* current() const { return the_frames.back().structure; }
    int position() const { return the_frames.back().position; }
    void set_position(int position) { the_frames.back().position = position; }

    int depth() const { return static_cast<int>(the_frames.size()); }

private:
    struct Frame
    {
        dgStructure* structure;
        int position;
    };
    std::vector<Frame> the_frames;
};
