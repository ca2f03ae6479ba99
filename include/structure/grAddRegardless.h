#pragma once

/// Selects adding without filters.
enum grAddRegardless
{
    grADD_REGARDLESS = 0
};
