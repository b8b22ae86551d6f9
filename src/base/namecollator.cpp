#include "base/namecollator.h"

namespace zel {

QCollator nameCollator()
{
    // The C locale knows neither digits by value nor letters outside ASCII.
    QLocale locale;
    if (locale.language() == QLocale::C)
        locale = QLocale(QLocale::English);
    QCollator collator(locale);
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    return collator;
}

} // namespace zel
