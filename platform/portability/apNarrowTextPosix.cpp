#include "apNarrowText.h"

// The narrow encoding is UTF-8.

int ap_decode_narrow(std::string_view text, std::string& utf8)
{
    utf8 = text;
    return 1;
}

int ap_encode_narrow(const std::string& utf8, std::string& text)
{
    text = utf8;
    return 1;
}
