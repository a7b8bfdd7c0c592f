// The check report: all rules over the program's state, and what is counted about them.
#pragma once

#include "check/check_source.h"
#include "check/finding.h"

#include <QString>

#include <vector>

struct CheckData;

/// A rule of the report.
struct CheckRule {
    QString id; ///< "C05"; its variants add a letter
    void (*run)(const CheckData& data, Findings& findings) = nullptr;
};

/// All rules, in the order of their ids.
const std::vector<CheckRule>& CheckRules();

struct CheckResult {
    FindingList All; ///< in the order of the rules
    qsizetype Errors = 0; ///< entries: findings of one id and part count once
    qsizetype Warnings = 0;
    qsizetype Hints = 0;
    qsizetype Members = 0;
    qsizetype Bills = 0; ///< bills with a total
};

/// Runs every rule. A rule that fails all the same leaves a warning that says so.
CheckResult RunCheck(const CheckSource& source);

/// The same with other rules.
CheckResult RunCheck(const CheckSource& source, const std::vector<CheckRule>& rules);
