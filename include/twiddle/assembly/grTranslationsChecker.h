#pragma once

#include "grExport.h"
#include "utString.h"

#include <string>
#include <vector>

class grToolFactory;

/// Finds the first fault of a text of actions, such as the value of the resource "translations", and says where it is.
///
/// The text may be written over several lines, each but the last ended by a backslash, as in a resource file. What it
/// accepts is what grStringConverter::to_actions reads, with names that one of the factories knows.
class GR_EXPORT grTranslationsChecker
{
public:
    /// Factories are not owned and must outlive the checker; without any, all tool names are accepted.
    explicit grTranslationsChecker(std::vector<const grToolFactory*> factories);

    /// 1 when all of the text is right.
    int check(const utString& text);

    /// Of the first fault after a check that failed: line and column count from 1, in characters (bytes) of the text as
    /// it was given; the complaint is a sentence without an end mark.
    int line() const { return the_line; }
    int column() const { return the_column; }
    const std::string& complaint() const { return the_complaint; }

private:
    bool is_known(const utString& tool) const;

    std::vector<const grToolFactory*> the_factories;
    int the_line = 0;
    int the_column = 0;
    std::string the_complaint;
};
