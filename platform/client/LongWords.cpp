#include "LongWords.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextOption>

namespace
{
constexpr int longestWord = 2000; ///< in letters
const char watchedProperty[] = "longWords";

bool hasLongWord(const QTextDocument& document)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.length() <= longestWord)
            continue;
        const QString text = block.text();
        int length = 0;
        for (const QChar letter : text) {
            length = letter.isSpace() ? 0 : length + 1;
            if (length > longestWord)
                return true;
        }
    }
    return false;
}

/// Called before the document is laid out.
void fit(QTextDocument* document)
{
    QTextOption option = document->defaultTextOption();
    const bool isAnywhere = option.wrapMode() == QTextOption::WrapAnywhere;
    if (option.wrapMode() == QTextOption::NoWrap || hasLongWord(*document) == isAnywhere)
        return;
    option.setWrapMode(isAnywhere ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::WrapAnywhere);
    document->setDefaultTextOption(option);
}
} // namespace

void LongWords::watch(QTextDocument* document)
{
    if (document->property(watchedProperty).isValid())
        return;
    document->setProperty(watchedProperty, true);
    QObject::connect(document, &QTextDocument::contentsChange, document, [document] { fit(document); });
    fit(document);
}
