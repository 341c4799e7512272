#pragma once

#include <QtGlobal>

/// RAMELIER_BENCH_PERSONNES: persons of the largest tree, 100000 when it is not set.
inline int PersonnesAuPlus()
{
    bool dit = false;
    const int voulu = qEnvironmentVariableIntValue("RAMELIER_BENCH_PERSONNES", &dit);
    return dit ? voulu : 100000;
}
