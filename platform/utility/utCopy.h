#pragma once

/// Selects copying constructors and assignments: X(utCopy, x), become(utCopy, x).
enum utCopyTag
{
    utCopy
};
