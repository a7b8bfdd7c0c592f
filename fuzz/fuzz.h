// What the fuzzing harnesses share: the entry that libFuzzer and the replay of the seeds call, and
// the sentence that a harness insists on.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// The input as bytes of its own.
QByteArray InputBytes(const std::uint8_t* data, std::size_t size);

/// Cuts the input at the first byte like this one: what stands in front, while the rest stays. The
/// whole input when there is no such byte.
QByteArray CutFront(QByteArray& input, char separator);

/// Ends the program with the sentence and the detail when it does not hold, so that the input is
/// kept as a finding.
void Require(bool holds, const char* sentence, const QString& detail = QString());
