#pragma once

#include <QtGlobal>

/// System calls that change files, made to fail one by one. The program that links this has its own open, write, fsync,
/// ftruncate, fchmod, link, linkat, rename, unlink and close, which come before the system's and call them.

/// While one lives, the calls of this process on files of a disk are counted from 1, and some fail. Calls on pipes,
/// sockets and the like, and openings for reading, neither count nor fail. One at a time.
class AppelsQuiEchouent
{
public:
    enum Duree { UneFois, DesormaisTous };

    /// The call number \a rang (none: 0) fails with the error number \a erreur; \a duree tells whether those after it
    /// fail too. A failing close has closed the file all the same, a failing write has written half of its bytes.
    AppelsQuiEchouent(int rang, int erreur, Duree duree);
    ~AppelsQuiEchouent();
    Q_DISABLE_COPY_MOVE(AppelsQuiEchouent)

    /// How many calls there were so far.
    [[nodiscard]] static int Appels();
    /// How many of them failed.
    [[nodiscard]] static int Echecs();
    /// The name of the first call that failed.
    [[nodiscard]] static const char *Premier();
};
