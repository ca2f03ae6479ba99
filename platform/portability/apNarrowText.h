#pragma once

#include <string>
#include <string_view>

// The narrow encoding of the platform, from and to UTF-8: 1, or 0 where a text has no other form, with what was to be
// set as it was.

int ap_decode_narrow(std::string_view text, std::string& utf8);
int ap_encode_narrow(const std::string& utf8, std::string& text);
