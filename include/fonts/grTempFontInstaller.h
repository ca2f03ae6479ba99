#pragma once

#include "apPathName.h"
#include "grExport.h"
#include "utTypeID.h"

/// Makes the fonts of a file known to the operating system for this process alone, as long as the object lives.
class GR_EXPORT grTempFontInstaller
{
public:
    /// The file is not installed yet.
    explicit grTempFontInstaller(const apPathName& file);
    /// Uninstalls a file that is still installed.
    virtual ~grTempFontInstaller();

    /// Answers whether the system took the file; a reader of font families that is made from now on lists its fonts. A
    /// file that is installed already stays so.
    int install();
    /// Takes the fonts out again.
    void uninstall();
    int installed() const { return the_installed; }

    UT_DECLARE_ROOT_TYPE(grTempFontInstaller);

protected:
    grTempFontInstaller(const grTempFontInstaller&);
    grTempFontInstaller& operator=(const grTempFontInstaller&);

private:
    apPathName the_path;
    int the_installed = 0;
};
