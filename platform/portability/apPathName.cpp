#include "apPathName.h"

#include "apNativePath.h"

int apPathName::is_absolute() const
{
    return ap_native_path(*this).is_absolute();
}

apPathName apPathName::operator/(const apPathName& name) const
{
    const std::u8string joined = (ap_native_path(*this) / ap_native_path(name)).u8string();
    return apPathName(std::string(joined.begin(), joined.end()));
}
