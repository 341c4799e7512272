#pragma once

#include <QtGlobal>

/// The wait cursor as a scope, for work that may take long. Scopes may stand in one another.
class CurseurAttente
{
public:
    CurseurAttente();
    ~CurseurAttente();
    Q_DISABLE_COPY_MOVE(CurseurAttente)
};

/// The usual cursor again as a scope: round a box that asks something in the middle of long work.
class CurseurRendu
{
public:
    CurseurRendu();
    ~CurseurRendu();
    Q_DISABLE_COPY_MOVE(CurseurRendu)

private:
    int interrompues;  ///< scopes of the work
};

/// Paints what a dialog that has just closed uncovered, and what the status bar says, before long work starts. Input waits.
void RepeintAvantDeTravailler();
