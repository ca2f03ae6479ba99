#pragma once

#include "apSystemFonts.h"

/// What one operating system does for apSystemFonts; one source file for each system defines it.
class apSystemFontHost
{
public:
    /// A listing, opened for some calls in a row.
    class Listing
    {
    public:
        virtual ~Listing() = default;
        virtual void enumerate(const char* family, const apSystemFonts::Callback& callback) const = 0;
    };
    static Listing* open();

    static int add_private(const apPathName& path);
    static int remove_private(const apPathName& path);
    static int find_face(const std::string& full_name, apFaceData& data);
};
