#include "FileAnswer.h"

#include "CVrkCliSes.h"
#include "HFNCliParam.h"
#include "LogText.h"
#include "MDRValues.h"

#include <memory>
#include <QTextCodec>

FileAnswer FileAnswer::fetch(CVrkCliSes* session, const QString& argument)
{
    const QString name = QStringLiteral("FileGet");
    const QByteArray bytes = session->codec()->fromUnicode(argument);
    HFNCliParam* block = nullptr;
    if (!session->PacketExec("FileGet", reinterpret_cast<const unsigned char*>(bytes.constData()),
                             bytes.size(), &block))
        return {QByteArray(), LogText::fill(QStringLiteral("request PacketExec('%1', '%2') returned FALSE"),
                                            {name, argument})};
    const bool isAnswered = session->WaitResult(&block, -1);
    const auto release = [session](HFNCliParam* answer) { session->PrmFree(answer); };
    const std::unique_ptr<HFNCliParam, decltype(release)> owned(block, release);
    if (!isAnswered || !block)
        return {QByteArray(), LogText::fill(QStringLiteral("can not wait result or result is nullptr for "
                                                           "request PacketExec('%1', '%2')"),
                                            {name, argument})};
    return read(block, argument);
}

FileAnswer FileAnswer::read(const HFNCliParam* answer, const QString& argument)
{
    constexpr int codeField = 0;
    constexpr int arrayField = 2;
    constexpr int contentField = 3; // of the one record in the array
    const auto failed = [&](const char* what, const QString& code = QString()) {
        return FileAnswer{
            QByteArray(),
            LogText::fill(QLatin1String("request PacketExec('%1', '%2') return ") + QLatin1String(what),
                          {QStringLiteral("FileGet"), argument, code})};
    };

    int code = 0;
    MDRGetAsInt32(MDRFldByNum(answer->array, codeField), answer, &code);
    if (code != 0)
        return failed("error code %3", QString::number(code));

    char* packed = nullptr;
    MDRGetTextPtr(MDRFldByNum(answer->array, arrayField), answer, &packed);
    CMDArray files;
    files.lastError = MDACreate(&files.array, 0);
    files.lastError = HFNArrayUnPack(files.array, packed, 1);
    if (files.RecCount() != 1)
        return failed("empty data (CMDArray::RecCount() == 0)");
    MDRVar content;
    MDRGetVal(MDRFldByNum(files.array, contentField), MDARec(files.array, 0, 0), &content);
    if (!MDRValue::hasText(content))
        return failed("empty data");
    return FileAnswer{MDRValue::copy(content), QString()};
}
