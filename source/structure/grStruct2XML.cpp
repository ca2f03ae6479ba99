#include "grStruct2XML.h"

#include "apString.h"
#include "dgCameraIndex.h"
#include "dgColourAttribute.h"
#include "dgGraphicalPrimitive.h"
#include "dgNumberAttribute.h"
#include "dgStructure.h"
#include "dgTransform.h"
#include "giPoint3.h"
#include "giTriangle.h"
#include "giVector3.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <ostream>
#include <string>
#include <unordered_map>
#include <vector>

namespace
{
constexpr std::size_t flush_size = 1 << 16; // bytes
constexpr int numbers_per_line = 12;        // whole points, triangles and rows of a matrix

const char* kind_name(dgGraphicalElementKind kind)
{
    switch (kind)
    {
    case dgELEMENT_ATTRIBUTE: return "attribute";
    case dgELEMENT_PRIMITIVE: return "primitive";
    case dgELEMENT_OTHER: break;
    }
    return "other";
}

void replace_all(std::string& text, std::string_view from, std::string_view to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

std::string comment_text(std::string_view given)
{
    std::string text(given);
    const bool is_utf8 = apString::from_utf8(given).valid();
    for (char& c : text)
    {
        const auto byte = static_cast<unsigned char>(c);
        const bool blank = c == '\t' || c == '\n' || c == '\r';
        if ((byte < 0x20 && !blank) || (byte >= 0x80 && !is_utf8))
            c = '?';
    }
    replace_all(text, "\xEF\xBF\xBE", "?"); // U+FFFE and U+FFFF are no characters of XML
    replace_all(text, "\xEF\xBF\xBF", "?");
    for (std::size_t at = text.find("--"); at != std::string::npos; at = text.find("--", at + 1))
        text.insert(at + 1, 1, ' ');
    return text;
}

// Writes the nodes; collects text, because a structure may have millions of numbers.
class Writer
{
public:
    explicit Writer(std::ostream& stream) : the_stream(stream) {}
    ~Writer() { write(); }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    void document(const dgStructure& root);

private:
    void structure(const dgStructure& structure);
    void element(const dgGraphicalElement& element);
    bool contents(const dgGraphicalElement& element, const char* end_of_tag);
    void geometry(const dgGeometry& geometry);
    int id(const dgStructure& structure);

    void open_array(const char* name, int count);
    void close_array(const char* name);
    void vector(double x, double y, double z, int i);
    void separator(int first_number);
    void attribute(const char* name, double value);
    void attribute(const char* name, int value);
    void number(double value);
    void number(int value);
    void text(std::string_view text) { the_text += text; }
    void name(std::string_view name);
    void write();
    void flush()
    {
        if (the_text.size() >= flush_size)
            write();
    }

    std::ostream& the_stream;
    std::string the_text;
    std::vector<const dgStructure*> the_structures; // by id - 1, also those still to be written
    std::unordered_map<const dgStructure*, int> the_ids;
};

void Writer::document(const dgStructure& root)
{
    id(root);
    text("<structures>\n");
    for (std::size_t i = 0; i < the_structures.size(); ++i)
        structure(*the_structures[i]);
    text("</structures>\n");
}

int Writer::id(const dgStructure& structure)
{
    const auto [found, added] = the_ids.try_emplace(&structure, static_cast<int>(the_ids.size()) + 1);
    if (added)
        the_structures.push_back(&structure);
    return found->second;
}

void Writer::structure(const dgStructure& structure)
{
    text("<structure");
    attribute("id", id(structure));
    text(" class=\"");
    name(structure.ut_dynamic_type().name());
    text("\"");
    attribute("elements", structure.nelements());
    text(">\n");
    for (int i = 0; i < structure.nelements(); ++i)
        element(*structure.element(i));
    text("</structure>\n");
}

void Writer::element(const dgGraphicalElement& element)
{
    text("<element");
    attribute("type", element.type());
    text(" kind=\"");
    text(kind_name(element.kind()));
    text("\" class=\"");
    name(element.ut_dynamic_type().name());
    text("\"");
    text(contents(element, ">\n") ? "</element>\n" : "/>\n");
    flush();
}

// Writes the rest of the tag; true when it wrote end_of_tag and nodes behind it.
bool Writer::contents(const dgGraphicalElement& element, const char* end_of_tag)
{
    if (element.kind() == dgELEMENT_PRIMITIVE)
    {
        const auto& primitive = static_cast<const dgGraphicalPrimitive&>(element);
        attribute("primitive_type", static_cast<int>(primitive.primitive_type()));
        text(end_of_tag);
        geometry(primitive.geometry());
        return true;
    }
    if (const auto* colour_attribute = ut_cast<const dgColourAttribute>(&element))
    {
        const gsColour& colour = colour_attribute->colour();
        text(end_of_tag);
        text("<colour");
        if (colour.representation() == gsCOLOUR_INDEX)
        {
            attribute("index", colour.index());
        }
        else
        {
            attribute("red", colour.red());
            attribute("green", colour.green());
            attribute("blue", colour.blue());
        }
        text("/>\n");
        return true;
    }
    if (const auto* transform = ut_cast<const dgTransform>(&element))
    {
        text(end_of_tag);
        text("<transform>");
        for (int i = 0; i < 16; ++i)
        {
            separator(i);
            number(transform->transform().data()[i]);
        }
        text("</transform>\n");
        return true;
    }
    if (const auto* number_attribute = ut_cast<const dgNumberAttribute>(&element))
        attribute("value", number_attribute->value());
    else if (const auto* camera = ut_cast<const dgCameraIndex>(&element))
        attribute("index", camera->index());
    else if (element.type() == dgTYPE_LABEL)
        attribute("label", element.label());
    else if (const dgStructure* called = element.called_structure())
        attribute("calls", id(*called));
    return false;
}

void Writer::geometry(const dgGeometry& geometry)
{
    open_array("points", geometry.npoints);
    for (int i = 0; i < geometry.npoints; ++i)
        vector(geometry.points[i].x(), geometry.points[i].y(), geometry.points[i].z(), i);
    close_array("points");
    if (geometry.normals)
    {
        open_array("normals", geometry.npoints);
        for (int i = 0; i < geometry.npoints; ++i)
            vector(geometry.normals[i].x(), geometry.normals[i].y(), geometry.normals[i].z(), i);
        close_array("normals");
    }
    if (!geometry.triangles)
        return;
    open_array("triangles", geometry.nfeatures);
    for (int i = 0; i < geometry.nfeatures; ++i)
        for (int corner = 0; corner < 3; ++corner)
        {
            separator(3 * i + corner);
            number(geometry.triangles[i][corner]);
        }
    close_array("triangles");
}

void Writer::open_array(const char* name, int count)
{
    text("<");
    text(name);
    attribute("count", count);
    text(">");
}

void Writer::close_array(const char* name)
{
    text("</");
    text(name);
    text(">\n");
}

void Writer::vector(double x, double y, double z, int i)
{
    separator(3 * i);
    number(x);
    text(" ");
    number(y);
    text(" ");
    number(z);
}

void Writer::separator(int first_number)
{
    if (first_number == 0)
        return;
    text(first_number % numbers_per_line ? " " : "\n");
    flush();
}

void Writer::attribute(const char* name, double value)
{
    text(" ");
    text(name);
    text("=\"");
    number(value);
    text("\"");
}

void Writer::attribute(const char* name, int value)
{
    text(" ");
    text(name);
    text("=\"");
    number(value);
    text("\"");
}

void Writer::number(double value)
{
    // What XML Schema calls the values that are no numbers.
    if (std::isnan(value))
        return text("NaN");
    if (std::isinf(value))
        return text(value < 0 ? "-INF" : "INF");
    char digits[32];
    text({digits, std::to_chars(digits, digits + sizeof digits, value).ptr});
}

void Writer::number(int value)
{
    char digits[16];
    text({digits, std::to_chars(digits, digits + sizeof digits, value).ptr});
}

// A class's name, which has blanks and angle brackets when it is a template's.
void Writer::name(std::string_view name)
{
    for (const char c : name)
        switch (c)
        {
        case '&': text("&amp;"); break;
        case '<': text("&lt;"); break;
        case '"': text("&quot;"); break;
        default: the_text += c;
        }
}

void Writer::write()
{
    the_stream.write(the_text.data(), static_cast<std::streamsize>(the_text.size()));
    the_text.clear();
}
}

void grStruct2XML::print_xml_header()
{
    the_stream << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
}

void grStruct2XML::print_comment(std::string_view text)
{
    the_stream << "<!-- " << comment_text(text) << " -->\n";
}

void grStruct2XML::print(const dgStructure& structure)
{
    Writer(the_stream).document(structure);
}
