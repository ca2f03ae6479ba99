#include "apSystemFonts.h"

#include "apString.h"
#include "apSystemFontHost.h"
#include "apSystemFontsOverride.h"

#include <algorithm>
#include <memory>
#include <set>
#include <utility>

namespace
{
class TableListing : public apSystemFontHost::Listing
{
public:
    explicit TableListing(std::vector<apSystemFace> faces) : the_faces(std::move(faces)) {}

    void enumerate(const char* family, const apSystemFonts::Callback& callback) const override
    {
        std::set<std::string> seen;
        for (const apSystemFace& face : the_faces)
            if (family ? face.family == family : seen.insert(face.family).second)
                callback(face);
    }

private:
    std::vector<apSystemFace> the_faces;
};
}

struct apSystemFonts::List
{
    std::unique_ptr<apSystemFontHost::Listing> listing;
};

apSystemFonts::apSystemFonts() : the_list(std::make_unique<List>())
{
    const apSystemFontsOverride* table = apSystemFontsOverride::current();
    the_list->listing.reset(table ? new TableListing(table->faces()) : apSystemFontHost::open());
}

apSystemFonts::~apSystemFonts() = default;

void apSystemFonts::enumerate(const char* family, const Callback& callback) const
{
    if (the_list->listing)
        the_list->listing->enumerate(family, callback);
}

int apSystemFonts::add_private(const apPathName& file)
{
    return file.valid() && !file.empty() && apSystemFontHost::add_private(file);
}

int apSystemFonts::remove_private(const apPathName& file)
{
    return file.valid() && !file.empty() && apSystemFontHost::remove_private(file);
}

int apSystemFonts::find_face(const std::string& full_name, apFaceData& data)
{
    if (full_name.empty())
        return 0;
    const apSystemFontsOverride* table = apSystemFontsOverride::current();
    if (!table)
        return apSystemFontHost::find_face(full_name, data);
    for (const apSystemFace& face : table->faces())
        if (ap_equal_case_blind(face.full_name, full_name))
        {
            data = apFaceData{face.file, face.face_index, {}};
            return 1;
        }
    return 0;
}
