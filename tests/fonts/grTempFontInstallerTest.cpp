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

TEST(grTempFontInstaller, a_private_font_is_listed_while_it_is_installed)
{
    tsFontFolder folder;
    grTempFontInstaller installer(apPathName(folder.write("own.ttf", tsRenamedFont("Vantor Tool")).str()));
    EXPECT_EQ(installer.installed(), 0);
    EXPECT_EQ(offered("Vantor Tool"), 0);
    EXPECT_EQ(installer.install(), 1);
    EXPECT_EQ(installer.installed(), 1);
    EXPECT_EQ(offered("Vantor Tool"), 1);
    EXPECT_EQ(loadable("Vantor Tool"), 1);
    EXPECT_EQ(offered("DejaVu Serif"), 1) << "beside those of the system";
    installer.uninstall();
    EXPECT_EQ(installer.installed(), 0);
    EXPECT_EQ(offered("Vantor Tool"), 0);
    EXPECT_EQ(loadable("Vantor Tool"), 0);
}

TEST(grTempFontInstaller, taking_one_font_out_leaves_the_others)
{
    tsFontFolder folder;
    const utString file = folder.write("a.ttf", tsRenamedFont("Vantor Able"));
    auto first = std::make_unique<grTempFontInstaller>(apPathName(file.str()));
    grTempFontInstaller again(apPathName(file.str()));
    auto second =
        std::make_unique<grTempFontInstaller>(apPathName(folder.write("b.ttf", tsRenamedFont("Vantor Belt")).str()));
    EXPECT_EQ(first->install() + again.install() + second->install(), 3);
    first.reset();
    EXPECT_EQ(offered("Vantor Able"), 1) << "installed by another one still";
    second.reset();
    EXPECT_EQ(offered("Vantor Belt"), 0);
    EXPECT_EQ(offered("Vantor Able"), 1);
    again.uninstall();
    EXPECT_EQ(offered("Vantor Able"), 0);
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
