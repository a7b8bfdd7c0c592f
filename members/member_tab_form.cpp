// Arranges the tab "Stammdaten": year row, names, address, readings, overview.
#include "members/member_tab_form.h"

#include "app/program.h"
#include "controls/fields.h"
#include "controls/stacking.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

void BuildMemberTab(Program& program, QWidget* tab)
{
    auto* left = new QVBoxLayout; // the controls are made in reading order, which is the Tab order
    left->setSpacing(TabSpacing);
    left->addLayout(BuildYearRow(program, tab));
    left->addWidget(BuildNameList(program, tab), 1);
    QGroupBox* address = BuildAddress(program, tab);
    auto* right = new QVBoxLayout;
    right->setSpacing(TabSpacing);
    right->addWidget(BuildReadings(program, tab));
    right->addWidget(BuildMemberOverview(program, tab), 1);

    auto* member = new QBoxLayout(QBoxLayout::LeftToRight);
    member->setSpacing(TabSpacing);
    member->addWidget(address, 3);
    member->addLayout(right, 2);
    auto* row = new QHBoxLayout(tab);
    row->setContentsMargins(TabSpacing, TabSpacing, TabSpacing, TabSpacing);
    row->setSpacing(TabSpacing);
    row->addLayout(left, 2);
    row->addLayout(member, 5);
    StackWhenNarrow(member, row, tab);
}
