#include "grTranslationsChecker.h"

#include "grAction.h"
#include "grActionReader.h"
#include "grToolFactory.h"
#include "gwJoinedText.h"

#include <algorithm>

grTranslationsChecker::grTranslationsChecker(std::vector<const grToolFactory*> factories)
    : the_factories(std::move(factories))
{}

int grTranslationsChecker::check(const utString& text)
{
    const gwJoinedText joined(text.view());
    grActionReader reader((utString(joined.text())));
    const auto complain = [&](int position, const std::string& complaint)
    {
        const gwTextPlace place = joined.place(static_cast<std::size_t>(position));
        the_line = place.line;
        the_column = place.column;
        the_complaint = complaint;
        return 0;
    };
    while (const std::unique_ptr<grAction> action = reader.next())
        if (!is_known(action->action_name()))
            return complain(reader.tool_position(), "there is no tool '" + action->action_name().str() + "'");
    return reader.failed() ? complain(reader.fault_position(), reader.complaint()) : 1;
}

bool grTranslationsChecker::is_known(const utString& tool) const
{
    return the_factories.empty() ||
           std::any_of(the_factories.begin(), the_factories.end(),
                       [&](const grToolFactory* factory) { return factory && factory->identify_tool(tool) > 0; });
}
