#pragma once

#include <QFlags>
#include <QString>
#include <bit>

namespace zel::recent {

/// What a document is, as a person sorts them. Bits.
enum class DocumentKind {
    Text = 1,
    Sheet = 2,
    Slides = 4,
    Pdf = 8,
    Picture = 16,
    Media = 32,
    Archive = 64,
    Other = 128
};
Q_DECLARE_FLAGS(DocumentKinds, DocumentKind)
Q_DECLARE_OPERATORS_FOR_FLAGS(DocumentKinds)

/// By the suffix of a file name (no file is looked at). Cheap; any thread.
DocumentKind documentKind(const QString &fileName);

/// 0 for the first kind, in the order in which lists show them.
constexpr int kindPlace(DocumentKind kind)
{
    return std::countr_zero(unsigned(kind));
}

/// "Documents", "Sheets" … for chips and headers; translated. GUI thread.
QString documentKindName(DocumentKind kind);

} // namespace zel::recent
