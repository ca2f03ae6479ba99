#include "apClockOverride.h"
#include "dgClientStructure.h"
#include "grCanvas.h"
#include "grIsometricTool.h"
#include "grPrimColourType.h"
#include "grRubberBandCallback.h"
#include "grRubberBandColourAppElement.h"
#include "grRubberBandIt.h"
#include "grRubberBandItemState.h"
#include "grRubberBandItemType.h"
#include "grRubberBandManager.h"
#include "grRubberBandMode.h"
#include "grRubberBandSelectDriver.h"
#include "grSpaceballTool.h"
#include "grTimingStat.h"
#include "grTimingStats.h"
#include "grTwiddleTimer.h"
#include "grView.h"
#include "grViewPaperChild.h"
#include "grViewTwiddleLock.h"
#include "tsScene.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <regex>
#include <sstream>

// Everything that prints itself, against one file: dumps.txt. What stands there was written from the description of
// each dump; after a change, look at each line that differs.
namespace
{
// The values 0 to n - 1 and -1 of an enumeration.
template <class Enum>
void print_names(std::ostream& os, int n)
{
    for (int value = 0; value < n; ++value)
        os << static_cast<Enum>(value) << '|';
    os << static_cast<Enum>(-1) << "|\n";
}

void print_views(std::ostream& os)
{
    tsScene scene;
    grView parent(scene.add_view());
    grView child(scene.add_view(), &parent);
    parent.hidden(1);
    parent.background(grVIEW_BACKGROUND_TRANSPARENT);
    parent.link_type(static_cast<grViewLinkType>(7)); // unknown values print nothing
    os << parent << child;
    grView::clear_all_view_twiddle_locks();
    grView::add_view_twiddle_lock(
        grViewTwiddleLock(grViewPaperChild::ut_static_type(), grSpaceballTool::ut_static_type()));
    grViewPaperChild locked(scene.add_view(), nullptr);
    locked.add_twiddle_lock(grIsometricTool::ut_static_type());
    locked.print(os, 1);
    grView::default_view_twiddle_locks();
    std::ostringstream level_2, display_view;
    child.print(level_2, 2);
    child.view()->print(display_view, 0, 0);
    os << "level 2 ends with the display view: " << level_2.str().ends_with(display_view.str() + "}\n") << '\n';
}

void print_timing(std::ostream& os)
{
    apClockOverride clock(100, 1000000000);
    grTwiddleTimer timer(5);
    os << timer;
    timer.add_mouse_event(giPoint2(0, 0));
    clock.advance(1.0 / 64);
    timer.add_mouse_event(giPoint2(4, 0));
    clock.advance(1.0 / 64);
    timer.end_twiddle_event(giPoint2(8, 0));
    timer.can_spin();
    os << timer;
    grTimingStat stat;
    stat.set_times(0.5, 1000000000.25);
    grTimingStats stats;
    stats.init(2);
    os << stat << stats;
    stats.debug_print(1, &os);
    stats.start();
    clock.advance(0.5);
    stats.end();
    os << stats;
}

void print_bands(std::ostream& os)
{
    const grRubberBandManager manager;
    tsScene scene;
    const dgRef<grRubberBandCallback> item(new grRubberBandCallback(&scene.renderer(), nullptr, nullptr));
    grRubberBandManager::add(item.get());
    grRubberBandManager::draw(item.get(), grDRAW_RUBBER_BAND_ITEM);
    os << manager;
    grRubberBandManager::add(nullptr);
    grRubberBandManager::print(os);
    grRubberBandManager::to_be_deleted(&scene.renderer());
    grRubberBandManager::clear();
    const dgRef<grRubberBandColourAppElement> element(
        new grRubberBandColourAppElement(gsColour(0, 0, 1), grTEXT_COLOUR));
    element->print(os);
    print_names<grRubberBandIt>(os, 2);
    print_names<grRubberBandSelectDriver>(os, 2);
    print_names<grRubberBandItemState>(os, 3);
    print_names<grRubberBandItemType>(os, 3);
    print_names<grPrimColourType>(os, 4);
    print_names<grRubberBandMode>(os, 3);
}

// With addresses numbered in the order of their appearance.
std::string without_addresses(const std::string& text)
{
    static const std::regex address("0x[0-9a-f]{6,}");
    std::map<std::string, std::string> names;
    std::string result, rest = text;
    for (std::smatch found; std::regex_search(rest, found, address); rest = found.suffix())
    {
        const std::string name = "@" + std::to_string(names.size() + 1);
        result += found.prefix().str() + names.emplace(found.str(), name).first->second;
    }
    return result + rest;
}
}

TEST(dumps, are_as_in_the_file)
{
    std::ostringstream os;
    print_views(os);
    print_timing(os);
    print_bands(os);
    std::ifstream file(TS_DUMPS);
    std::istringstream printed(without_addresses(os.str()));
    std::string expected, found;
    for (int line = 1; std::getline(printed, found); ++line)
    {
        found = std::regex_replace(found, std::regex(" $"), "~"); // a blank at the end, so that it is seen
        EXPECT_TRUE(std::getline(file, expected)) << "line " << line << " is missing: " << found;
        EXPECT_EQ(found, expected) << "line " << line;
    }
    EXPECT_FALSE(std::getline(file, expected)) << "no such line is printed: " << expected;
}
