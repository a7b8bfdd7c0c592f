// The pages of a PDF as files of their own.
#pragma once

#include <QByteArray>

#include <vector>

/// A PDF file for each page of the given one, in order: the page, what it draws with and the
/// properties of the document; nothing of the other pages. What is compressed stays as it is. Empty
/// when that is no whole PDF or when libqpdf is not on this computer.
std::vector<QByteArray> SinglePages(const QByteArray& pdf);
