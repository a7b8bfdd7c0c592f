// What happens once, before the window is shown.
#pragma once

struct Program;

/// The start-up sequence in its documented order (docs/architecture.md): club name, year,
/// calendars, members with roll-forward, ledgers, settings, pages, first member, then LoadYear.
/// Errors are shown and the sequence goes on.
void StartUp(Program& program);
