#pragma once

#include "grStdToolFactoryOptionsPair.h"
#include "grToolFactory.h"

#include <deque>

class grStdTwiddleHooks;
class gwResourceDB;

/// The factory of the library's own tools, each known by name. A stack of options says which of them are built as the
/// variant that acts on several views at once.
class GR_EXPORT grStdToolFactory : public grToolFactory
{
public:
    /// Both are handed to every tool, are not owned and must outlive the tools; each may be null. The stack holds
    /// default options from the start.
    grStdToolFactory(grStdTwiddleHooks* hooks, const gwResourceDB* db);
    ~grStdToolFactory() override;

    /// The tool's number from 1 to num_tools(), or 0 for any other text; case counts.
    int identify_tool(utString name) const override;
    /// Null for a number that is none of a tool's. The options in force now decide the variant.
    grTwiddleTool* create_tool(int tool, const utString& args) const override;
    static int num_tools() { return grStdToolFactoryOptions::the_size; }

    /// The options in force: those pushed last.
    const grStdToolFactoryOptions& options() const { return the_options.back().options(); }
    /// Copies the options onto the stack and answers the id of the new entry.
    int push_options(const grStdToolFactoryOptions& options);
    /// Takes the top entry off, whatever the id: it only lets a caller pair its calls. The entry made by the
    /// constructor must stay.
    void pop_options(int id);

private:
    grStdTwiddleHooks* the_hooks;
    const gwResourceDB* the_resource_db;
    // A deque builds entries in place and leaves the others where they are, so that options() may be pushed again.
    std::deque<grStdToolFactoryOptionsPair> the_options;
};
