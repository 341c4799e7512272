#pragma once

#include <QtGlobal>

#include <sys/stat.h>

/// What new files and folders of this process may not allow, for the life of one object.
class MasqueDroits
{
public:
    explicit MasqueDroits(mode_t masque)
        : avant(::umask(masque))
    {
    }
    ~MasqueDroits() { ::umask(avant); }
    Q_DISABLE_COPY_MOVE(MasqueDroits)

private:
    mode_t avant;
};
