#pragma once

#include "grExport.h"
#include "utCopy.h"

#include <array>

/// For each tool of the standard factory, whether its multi-view variant is built. All off on construction.
///
/// Tool numbers count from 1 and are not checked.
class GR_EXPORT grStdToolFactoryOptions
{
public:
    /// Number of tools.
    static constexpr int the_size = 19;

    grStdToolFactoryOptions() = default;
    grStdToolFactoryOptions(utCopyTag, const grStdToolFactoryOptions& other) : the_multi(other.the_multi) {}

    int use_multi_tool(int tool) const { return the_multi[static_cast<std::size_t>(tool - 1)]; }
    void use_multi_tool(int tool, int on) { the_multi[static_cast<std::size_t>(tool - 1)] = on != 0; }
    void use_multi_tools(int on) { the_multi.fill(on != 0); }

protected:
    grStdToolFactoryOptions(const grStdToolFactoryOptions&) = delete;
    grStdToolFactoryOptions& operator=(const grStdToolFactoryOptions&) = delete;

private:
    std::array<bool, the_size> the_multi{};
};
