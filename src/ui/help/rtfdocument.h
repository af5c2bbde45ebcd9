#pragma once

#include "rtf/document.h"

#include <QList>
#include <QString>

class QTextDocument;

namespace kelvo {

/// A heading of the guide and where its paragraph begins.
struct Heading {
    QString text;
    int level = 0; ///< 1 to 9
    int position = 0;
};

/// Fills an empty document with what a file says; answers its headings.
QList<Heading> FillDocument(QTextDocument &document, const rtf::Document &content);

} // namespace kelvo
