#pragma once

class Arbre;
struct FormatsDessins;

/// Places every person of \a arbre for one pair of scales (device pixels per millimetre): the oldest generation in the
/// top row, the root in the bottom row, everybody centred under the parents and pushed right, with all ancestors, where
/// boxes would overlap. Sets x and y of every person whose generation is counted by the tree.
///
/// Passes repeat until one moves nothing; each costs as much as it moves. A malformed tree (a generation out of order,
/// parents in another order than their children, lengths that are not positive) might never come to rest: there the
/// corrections stop after 100 passes.
void DisposeArbre(Arbre &arbre, const FormatsDessins &formats, float echelleX, float echelleY);

/// True when DisposeArbre would leave everybody where they are: it ran last with the same lengths, and nothing that it looks
/// at has changed since. O(n).
[[nodiscard]] bool EstDispose(const Arbre &arbre, const FormatsDessins &formats, float echelleX, float echelleY);
