#include "app/program.h"

void BuildMemberTab(Program&, QWidget*) { }
void ClearFields(Program&, int) { }
void ShowMember(Program&) { }
void ShowNameList(Program&) { }
void SelectMember(Program&, int) { }
void MemberFieldClicked(Program&, int) { }
void NewMember(Program&) { }
void SaveMember(Program&) { }
void DeleteMember(Program&) { }
void EnterReadings(Program&) { }
