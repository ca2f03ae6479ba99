#include "grTempFontInstaller.h"

#include "tsFontFolder.h"

#include "dgRef.h"
#include "dgTextFont.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{
int offered(const char* family)
{
    return grOutlineFontFamilyReader("", "").family_exists(ltTRUETYPE_FONT, family);
}

int loadable(const char* full_name)
{
    return dgRef<dgTextFont>(new dgTextFont(full_name, 0, 0, 0))->load_status() == dgTEXT_FONT_LOADED;
}
}

TEST(grTempFontInstaller, private_fonts_are_listed_while_one_has_them_installed)
{
    tsFontFolder folder;
    const apPathName able(folder.write("a.ttf", tsRenamedFont("Vantor Able")).str());
    grTempFontInstaller first(able), again(able);
    auto second =
        std::make_unique<grTempFontInstaller>(apPathName(folder.write("b.ttf", tsRenamedFont("Vantor Belt")).str()));
    EXPECT_EQ(first.installed() + offered("Vantor Able") + loadable("Vantor Able"), 0);
    EXPECT_EQ(first.install() + again.install() + second->install() + first.install(), 4);
    EXPECT_EQ(first.installed() + offered("Vantor Able") + loadable("Vantor Able") + offered("Vantor Belt"), 4);
    EXPECT_EQ(offered("DejaVu Serif"), 1) << "beside those of the system";
    first.uninstall();
    second.reset();
    EXPECT_EQ(first.installed() + offered("Vantor Belt"), 0);
    EXPECT_EQ(offered("Vantor Able"), 1) << "installed by another one still";
    again.uninstall();
    EXPECT_EQ(offered("Vantor Able") + loadable("Vantor Able"), 0);
}

TEST(grTempFontInstaller, files_that_hold_no_font_are_not_installed)
{
    tsFontFolder folder;
    for (const utString& file : {folder / "none.ttf", folder.path(), folder.write("text.ttf", "no font"),
                                 folder.write("empty.ttf", ""), utString(), utString("\xff")})
    {
        grTempFontInstaller installer(apPathName(file.str()));
        EXPECT_EQ(installer.install(), 0) << file;
        EXPECT_EQ(installer.installed(), 0) << file;
    }
}
