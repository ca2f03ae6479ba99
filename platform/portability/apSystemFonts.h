#pragma once

#include "apExport.h"
#include "apFaceData.h"
#include "apPathName.h"
#include "apSystemFace.h"

#include <functional>
#include <memory>
#include <string>

/// The fonts that the operating system offers to this process, as they are when the object is made.
///
/// On Windows these are the system's own calls; elsewhere fontconfig's list, with weights on the scale from 100 to 900
/// and the character set derived from the code pages that the font claims to serve.
class AP_EXPORT apSystemFonts
{
public:
    using Callback = std::function<void(const apSystemFace&)>;

    apSystemFonts();
    ~apSystemFonts();
    apSystemFonts(const apSystemFonts&) = delete;
    apSystemFonts& operator=(const apSystemFonts&) = delete;

    /// Calls back for one face of every family when family is null, else for every face of that family.
    void enumerate(const char* family, const Callback& callback) const;

    /// Offers the fonts of a file to this process alone; listings made from now on contain them. Answers 0 when the
    /// file holds no font. A file that is added twice must be removed twice.
    static int add_private(const apPathName& file);

    /// Takes a file back that add_private took; 0 when it is not there.
    static int remove_private(const apPathName& file);

    /// Where the face of a full name is, whatever the case of its letters; 0 with data untouched when there is none.
    static int find_face(const std::string& full_name, apFaceData& data);

private:
    struct List;
    std::unique_ptr<List> the_list;
};
