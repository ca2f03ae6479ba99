#pragma once

/// How loading a font went.
enum dgTextFontStatus
{
    dgTEXT_FONT_LOADED = 0,
    dgTEXT_FONT_NO_FILE = 1, ///< a file is missing or cannot be read, or the system knows no such face
    dgTEXT_FONT_BAD_FILE = 2 ///< a file's contents are no scalable font, or metrics that do not belong to the font
};
