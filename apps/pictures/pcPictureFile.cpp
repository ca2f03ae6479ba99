#include "pcPictureFile.h"

#include "flMessages.h"
#include "flOutputFile.h"

#include "dg_write_png.h"

#include <sstream>

int pc_write_png(const std::string& path, const dgImage& image, std::string& error, int alpha)
{
    std::ostringstream bytes;
    if (dg_write_png(bytes, image, alpha))
        return fl_write(path, bytes.view(), error);
    error = fl_name(path) + ": the picture could not be written as PNG";
    return 0;
}
