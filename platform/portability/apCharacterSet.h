#pragma once

/// What a font is taken for that claims no code page.
constexpr int apCHARACTER_SET_UNSPECIFIED = 1;

/// Number of the Windows character set that stands for a font with these code pages, given as the bits of the field
/// ulCodePageRange1 of its table OS/2. Form of the table: OpenType, "OS/2".
int ap_character_set(unsigned long code_pages);
