#include "vwHooks.h"

#include "grStringConverter.h"

#include "gwResourceDB.h"

vwHooks::vwHooks(const gwResourceDB& db, double framerate) : grStdTwiddleHooks(&db)
{
    allow_spinning(1);
    use_refresher_fast(1);
    utString text;
    if (framerate <= 0 && db.get_resource("framerate", text))
        grStringConverter::to_double(text, framerate);
    if (framerate > 0)
        enable_timeout_twiddling(framerate);
}
