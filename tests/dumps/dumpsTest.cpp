#include "apClockOverride.h"
#include "dgClientStructure.h"
#include "dgLabel.h"
#include "dgLineColour.h"
#include "dgLineWidth.h"
#include "dgPolyline.h"
#include "dgStructureCall.h"
#include "dgTransform.h"
#include "dgTriangleBlock.h"
#include "giAngle.h"
#include "giBox2.h"
#include "giPlane.h"
#include "giTriBlock.h"
#include "giWorkplane3.h"
#include "giXform3.h"
#include "grAction.h"
#include "grAddToStructure.h"
#include "grBlockDiagClass.h"
#include "grBlockVisClass.h"
#include "grBorkedTri.h"
#include "grCanvas.h"
#include "grColourMode.h"
#include "grFastDrawMethod.h"
#include "grIdImageSense.h"
#include "grIdleAction.h"
#include "grInterNode.h"
#include "grIsometricTool.h"
#include "grNodeLink.h"
#include "grOutlineFontFamilyReader.h"
#include "grOutlineFontListElement.h"
#include "grPrimColourType.h"
#include "grRubberBandCallback.h"
#include "grRubberBandColourAppElement.h"
#include "grRubberBandGraphicalElement.h"
#include "grRubberBandIt.h"
#include "grRubberBandItemState.h"
#include "grRubberBandItemType.h"
#include "grRubberBandManager.h"
#include "grRubberBandMode.h"
#include "grRubberBandSelectDriver.h"
#include "grRubberBandStructure.h"
#include "grSpaceballTool.h"
#include "grSpanEdge.h"
#include "grSplitBlock.h"
#include "grSplitterProgressSection.h"
#include "grStruct2XML.h"
#include "grStructureCutStatus.h"
#include "grStructurePasteStatus.h"
#include "grStructureStats.h"
#include "grTimingStat.h"
#include "grTimingStats.h"
#include "grTrackballCentreType.h"
#include "grTwidBusyState.h"
#include "grTwidState.h"
#include "grTwiddleTimer.h"
#include "grView.h"
#include "grViewPaperChild.h"
#include "grViewPaperParent.h"
#include "grViewTwiddleLock.h"
#include "grZone.h"
#include "gwResourceDB.h"
#include "gwTypes.h"
#include "tsScene.h"

#include <gtest/gtest.h>

#include <fstream>
#include <limits>
#include <map>
#include <regex>
#include <sstream>

// Everything that prints itself, against one file: dumps.txt. Programs read these forms, so after a change look at each
// line that differs.
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
    grViewPaperParent sheet(scene.add_view());
    const grViewPaperChild first(scene.add_view(), &sheet), second(scene.add_view(), &sheet);
    sheet.print(os, 0);
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
    grRubberBandGraphicalElement(&scene.renderer(), nullptr, element.get(), nullptr).print(os);
    grRubberBandStructure(&scene.renderer(), nullptr, tsLine(1).get(), nullptr).print(os);
    print_names<grRubberBandIt>(os, 2);
    print_names<grRubberBandSelectDriver>(os, 2);
    print_names<grRubberBandItemState>(os, 3);
    print_names<grRubberBandItemType>(os, 3);
    print_names<grPrimColourType>(os, 4);
    print_names<grRubberBandMode>(os, 3);
}

// A structure with everything that has a form of its own.
struct Network
{
    dgRef<dgStructure> root{new dgClientStructure}, part{new dgClientStructure};

    Network()
    {
        auto* block = new giTriBlock;
        block->nodes() = giBoxArrPoint3({{0, 0, 0}, {1, 0, 0}, {0, 0.1, 0}});
        block->triangles().emplace_back(0, 1, 2);
        part->add(new dgTriangleBlock(block, 1));
        auto* with_normals = new giTriBlock(*block);
        with_normals->create_normals()[2] = giVector3(0, 0, 1);
        part->add(new dgTriangleBlock(with_normals, 1));
        const double infinity = std::numeric_limits<double>::infinity();
        for (dgGraphicalElement* element : std::initializer_list<dgGraphicalElement*>{
                 new dgLineColour(gsColour(1, 0, 0.25)), new dgLineColour(gsColour::from_index(7)),
                 new dgLineWidth(1.5), new dgLabel(-5), new dgTransform(giXform3::translation({1, 2, 3})),
                 new dgPolyline({{0, 0, 0}, {1e-7, -2, 3}, {0, 0, 0}, {1, 1, 1}, {2, 2, 2}}),
                 new dgPolyline({{infinity, -infinity, std::numeric_limits<double>::quiet_NaN()}}),
                 new dgStructureCall(part.get()), new dgStructureCall(part.get()), new dgStructureCall(root.get()),
                 new dgStructureCall(nullptr)})
            root->add(element);
    }
    ~Network() { root->clear(); } // takes the circle apart
};

void print_structures(std::ostream& os)
{
    const Network network;
    grStruct2XML xml(os);
    xml.print_xml_header();
    for (const char* comment : {"a --> b ---", "caf\xC3\xA9 \x01", "caf\xE9", "\xEF\xBF\xBE\xEF\xBF\xBF"})
        xml.print_comment(comment);
    xml.print(*network.root);
    os << grStructureStats(network.root.get());
    const dgRef<dgStructure> structure(new dgClientStructure);
    grAddToStructure adder(structure.get());
    adder.ignore_single_attribute(2);
    adder.add(new dgLabel(1));
    adder.add(new dgLineWidth(5));
    os << adder << grAddToStructure(dgREFERENCE_NONE, nullptr);
    print_names<grStructureCutStatus>(os, 3);
    print_names<grStructurePasteStatus>(os, 3); // there is no 1
    print_names<dgReferenceMode>(os, 2);
}

void print_meshes(std::ostream& os)
{
    grNodeLink link;
    link.append_a_link(8);
    os << grInterNode(0.25, 7) << grBorkedTri(1, 2, 3) << grSpanEdge(4, 5, 6, 7) << link;
    grSplitBlock block(0);
    block.add_overview_counts(1, 2, 3, 0);
    block.zoom_point(giPoint3(1, 2, 3));
    os << block;
    print_names<grZone>(os, 5);
    print_names<grBlockVisClass>(os, 4);
    print_names<grBlockDiagClass>(os, 14);
    print_names<grIdImageSense>(os, 2);
    print_names<grSplitterProgressSection>(os, 4);
}

void print_tool_names(std::ostream& os)
{
    print_names<grColourMode>(os, 2);
    print_names<grTwidState>(os, 3);
    print_names<grTwidBusyState>(os, 2);
    print_names<grIdleAction>(os, 2);
    print_names<grTrackballCentreType>(os, 3);
    print_names<grFastDrawMethod>(os, 2);
    print_names<grViewLinkType>(os, 2);
    print_names<grViewBackground>(os, 2);
    print_names<gwKeyType>(os, 8);
    print_names<gwDisplayBufferMode>(os, 3);
    print_names<gwDriverType>(os, 6);
    print_names<gwResourceStatus>(os, 3);
}

void print_texts(std::ostream& os)
{
    print_names<grOutlineFontFileStatus>(os, 2);
    print_names<grOutlineFontInstallStatus>(os, 5);
    print_names<grOutlineFontStyle>(os, 4);
    grAction action(grActionTrigger(gwMOUSE_BUTTON, 1, gwMODIFIER_SHIFT, "x,y"), "zoom");
    os << action;
    action.bind(grToolDetail(nullptr, 3));
    os << action;
    grOutlineFontListElement family(ltTRUETYPE_FONT, 204, "Sans", {"a", "b", "", "d"}, {"e", "", "g", "h"});
    family.family_installed(8);
    os << family;
}

void print_geometry(std::ostream& os)
{
    giTriBlock block;
    os << block << '\n';
    block.nodes().set(2, giPoint3(1, 2, 3));
    block.triangles().push_back(giTriangle(0, 1, 2));
    block.create_normals();
    block.create_curvatures();
    block.create_texture_coordinates();
    os << block << ' ' << block.triangles()[0] << ' ' << giAngle(0.5) << ' ' << giBox2() << giBox2(1, 2, 3, 4) << ' '
       << giVector2(1, 2) << '\n'
       << giPlane(giPoint3(0, 0, 2), giVector3(0, 0, 1)) << ' '
       << giWorkplane3(giPoint3(1, 1, 1), giVector3(1, 0, 0), giVector3(0, 1, 0)) << '\n'
       << giXform3::translation(giVector3(1, 2, 3));
}

// With addresses numbered in the order of their appearance. Columns of a table stay as wide as they are.
std::string without_addresses(const std::string& text)
{
    static const std::regex address("0x[0-9a-f]{6,}");
    std::map<std::string, std::string> names;
    std::string result, rest = text;
    for (std::smatch found; std::regex_search(rest, found, address); rest = found.suffix())
    {
        const std::string name = "@" + std::to_string(names.size() + 1);
        result += found.prefix().str() + names.emplace(found.str(), name).first->second;
        if (found.suffix().str().starts_with("  "))
            result.append(std::size_t(found.length()) - name.size(), ' ');
    }
    return result + rest;
}
}

TEST(dumps, are_as_in_the_file)
{
    // Each with numbers of its own, as what is gone may leave its address to others.
    std::string text;
    for (const auto print : {print_views, print_timing, print_bands, print_structures, print_meshes, print_tool_names,
                             print_texts, print_geometry})
    {
        std::ostringstream os;
        print(os);
        text += without_addresses(os.str());
    }
    std::ifstream file(TS_DUMPS);
    std::istringstream printed(text);
    std::string expected, found;
    for (int line = 1; std::getline(printed, found); ++line)
    {
        found = std::regex_replace(found, std::regex(" $"), "~"); // a blank at the end, so that it is seen
        EXPECT_TRUE(std::getline(file, expected)) << "line " << line << " is missing: " << found;
        EXPECT_EQ(found, expected) << "line " << line;
    }
    EXPECT_FALSE(std::getline(file, expected)) << "no such line is printed: " << expected;
}
