// The ways between a name and its bill: context menus and Ctrl+Enter in the lists of names, and on
// the page the way back, a double click on an amount, and a list of names that letters open.
#pragma once

struct Program;

/// Connects them to the lists and to the page of the built window.
void BuildBillWays(Program& program);
