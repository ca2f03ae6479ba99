#include "grTempFontInstaller.h"

#include "apSystemFonts.h"

UT_DEFINE_TYPE(grTempFontInstaller);

grTempFontInstaller::grTempFontInstaller(const apPathName& file) : the_path(file) {}

grTempFontInstaller::~grTempFontInstaller()
{
    if (the_installed)
        uninstall();
}

int grTempFontInstaller::install()
{
    // The system counts how often a file was added, and the destructor takes it out once.
    if (!the_installed)
        the_installed = apSystemFonts::add_private(the_path);
    return the_installed;
}

void grTempFontInstaller::uninstall()
{
    if (the_installed && apSystemFonts::remove_private(the_path))
        the_installed = 0;
}
