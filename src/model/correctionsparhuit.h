#pragma once

struct TableDisposition;

/// Repeats the corrections of a layout until one moves nothing, eight neighbours of a row at a time; the positions are
/// those of the corrections one by one. False where that cannot be: the processor lacks the instructions, the margin is
/// negative, or a position gets too large; nothing is moved then.
///
/// Precondition: everybody with parents stands at their mean, as after every pass with a margin that is not negative.
[[nodiscard]] bool CorrigeParHuit(TableDisposition &table, long marge);
