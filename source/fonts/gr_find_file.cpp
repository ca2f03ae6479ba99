#include "gr_find_file.h"

#include "apFile.h"
#include "utString.h"

int gr_find_file(const utString& name, const utString& path, utString& found)
{
    // An empty or undecodable one names no file in any directory.
    const apPathName file(name.view());
    if (file.is_absolute())
    {
        if (!ap_file_exists(file))
            return 0;
        found = name;
        return 1;
    }
    for (const apPathName& directory : ap_split_path_list(path.view()))
    {
        const apPathName candidate = directory / file;
        if (!directory.valid() || !ap_file_exists(candidate))
            continue;
        found = utString(candidate.utf8());
        return 1;
    }
    return 0;
}
