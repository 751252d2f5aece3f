#include "SiteWords.h"

#include "CMDArray.h"
#include "CVrkCliSes.h"
#include "HFNCliParam.h"
#include "MDRValues.h"

#include <memory>

namespace
{
/// The lines of a file in the folder "words"; empty if the server has none, or cannot be reached.
QStringList linesOf(CVrkCliSes* session, const char* file)
{
    constexpr int codeField = 0;
    constexpr int arrayField = 2;
    constexpr int contentField = 3; // of the one record in the array
    const QByteArray argument = QByteArray("words;") + file;
    HFNCliParam* block = nullptr;
    if (!session ||
        !session->PacketExec("FileGet", reinterpret_cast<const unsigned char*>(argument.constData()),
                             argument.size(), &block))
        return QStringList();
    const auto release = [session](HFNCliParam* answer) { session->PrmFree(answer); };
    const std::unique_ptr<HFNCliParam, decltype(release)> answer(block, release);
    int code = 1;
    if (answer)
        MDRGetAsInt32(MDRFldByNum(answer->array, codeField), answer.get(), &code);
    if (code != 0)
        return QStringList();
    char* packed = nullptr;
    MDRGetTextPtr(MDRFldByNum(answer->array, arrayField), answer.get(), &packed);
    CMDArray files;
    files.lastError = MDACreate(&files.array, 0);
    files.lastError = HFNArrayUnPack(files.array, packed, 1);
    if (files.RecCount() != 1)
        return QStringList();
    MDRVar content;
    MDRGetVal(MDRFldByNum(files.array, contentField), MDARec(files.array, 0, 0), &content);
    return QString::fromUtf8(MDRValue::copy(content)).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}
} // namespace

QStringList SiteWords::of(CVrkCliSes* session)
{
    return linesOf(session, "ru");
}

QHash<QString, QString> SiteWords::abbreviations(CVrkCliSes* session)
{
    QHash<QString, QString> all;
    for (const QString& line : linesOf(session, "abbreviations")) {
        const QString text = line.section(QLatin1Char('\t'), 1);
        if (!text.isEmpty())
            all.insert(line.section(QLatin1Char('\t'), 0, 0), text);
    }
    return all;
}
