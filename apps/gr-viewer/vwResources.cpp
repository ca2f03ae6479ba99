#include "vwResources.h"

#include "vwBindings.h"

#include "flMessages.h"

#include "grExtraToolFactory.h"
#include "grResourceKey.h"
#include "grStdToolFactory.h"
#include "grTranslationsChecker.h"

#include "apString.h"
#include "gwResourceDB.h"
#include "gwResourceText.h"
#include "utString.h"

#include <algorithm>
#include <iterator>
#include <ostream>

namespace
{
// Checks the settings of one file, and says what is wrong with them as "file:line: complaint".
class Checker
{
public:
    Checker(const std::string& file, std::string_view text) : the_file(file), the_text(text) {}

    // 0 for the first setting that cannot be used.
    int check(std::string& error) const
    {
        if (the_text.bad_line())
        {
            error =
                the_file + ":" + std::to_string(the_text.bad_line()) + ": a line of a resource file is 'key: value'";
            return 0;
        }
        return std::all_of(the_text.settings().begin(), the_text.settings().end(),
                           [&](const gwResourceText::Setting& setting) { return is_right(setting, error); });
    }

    // What has no effect: keys that nobody reads, and values that a later line replaces.
    void warn(std::ostream& os) const
    {
        const auto& settings = the_text.settings();
        for (auto setting = settings.begin(); setting != settings.end(); ++setting)
        {
            const auto first = std::find_if(settings.begin(), setting,
                                            [&](const auto& earlier) { return earlier.key == setting->key; });
            if (!grResourceKey::find(setting->key))
                os << at(*setting) << "no tool reads " << ap_quoted(setting->key.view()) << '\n';
            else if (first != setting)
                os << at(*setting) << setting->key << ": replaces what line " << line(*first) << " sets\n";
        }
    }

private:
    int line(const gwResourceText::Setting& setting) const { return the_text.place(setting.key_position).line; }
    std::string at(const gwResourceText::Setting& setting) const
    {
        return the_file + ":" + std::to_string(line(setting)) + ": ";
    }

    bool is_right(const gwResourceText::Setting& setting, std::string& error) const
    {
        const grResourceKey* key = grResourceKey::find(setting.key);
        if (!key)
            return true;
        if (key->kind() == grRESOURCE_ACTIONS)
            return are_actions(setting, error);
        std::string complaint;
        if (key->accepts(setting.value, complaint))
            return true;
        error = at(setting) + setting.key.str() + ": " + complaint;
        return false;
    }

    bool are_actions(const gwResourceText::Setting& setting, std::string& error) const
    {
        const grStdToolFactory factory(nullptr, nullptr);
        const grExtraToolFactory extra_tools(nullptr, nullptr);
        grTranslationsChecker checker({&factory, &extra_tools});
        if (checker.check(setting.value))
            return true;
        // The value is one line here: in the file it may be several.
        const gwTextPlace place =
            the_text.place(setting.value_position + static_cast<std::size_t>(checker.column() - 1));
        error = the_file + ":" + std::to_string(place.line) + ":" + std::to_string(place.column) + ": " +
                setting.key.str() + ": " + checker.complaint();
        return false;
    }

    const std::string& the_file;
    gwResourceText the_text;
};

// Loads the text of a file, unless it has a fault.
bool load_checked(const std::string& text, const std::string& file, gwResourceDB& db, std::string& error,
                  std::ostream* warnings)
{
    const Checker checker(file, text);
    if (!checker.check(error))
        return false;
    if (warnings)
        checker.warn(*warnings);
    int line = 0;
    return db.load_text(text, line) == gwRESOURCE_OK;
}
}

const char* vw_default_resources()
{
    return
#include "vwDefaultResources.inc"
        ;
}

int vw_load_resources(const std::string& file, gwResourceDB& db, std::string& error)
{
    return vw_load_resources(file, "", db, error, nullptr);
}

int vw_load_resources(const std::string& file, const std::string& bindings, gwResourceDB& db, std::string& error,
                      std::ostream* warnings)
{
    int line = 0;
    gwResourceDB read;
    // The built-in text is right by construction: a test holds it against the checks that files have to pass.
    read.load_text(vw_default_resources(), line);
    std::string text;
    if (!bindings.empty() &&
        (!vw_find_bindings(bindings, text, error) || !load_checked(text, bindings, read, error, warnings)))
        return 0;
    if (!file.empty())
    {
        if (!fl_read_text(file, text, error))
            return 0;
        if (!load_checked(text, file, read, error, warnings))
            return 0;
    }
    db = read;
    return 1;
}
