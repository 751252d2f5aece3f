#include "CModelTable.h"
#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "Desktop.h"
#include "Fields.h"
#include "FileNames.h"
#include "FilesPane.h"
#include "GenGuid32.h"
#include "LocationInfo.h"
#include "LogbookTables.h"
#include "LogText.h"
#include "PageMessages.h"
#include "RecordValue.h"
#include "RunnableFile.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QToolButton>
#include <QUrl>
#include <utility>

namespace
{
const char* const savedPath = "saved_from_logbook";

QString desktopFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
}

/// Fetches the content of a file, \a content as a part of the record; false if the store does not return
/// it.
bool fetch(const MDRData* file, QByteArray* content)
{
    MDRVar value;
    const int code = MDRGetVal(MDRFldByName(MDARecArr(file), Field::fileData), file, &value);
    *content = MDRValue::bytes(value);
    return code == mdr_Ok;
}

/// Deliberate: does not check whether everything reached the disk.
bool write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(content);
    return true;
}
} // namespace

void FilesPane::createFileRequest()
{
    // Only the key: while the user chooses a file, the record may be removed.
    const QByteArray recordKey = Row(source().currentRecord()).key();
    if (recordKey.isEmpty())
        return;
    const QString path = Desktop::current().askOpenFile(m_page, tr("Выбор файла"), desktopFolder());
    if (path.isEmpty())
        return;
    const auto refuse = [this] {
        source().messages->error(tr("Ошибка"), tr("Размер файла слишком большой!") +
                                                   QStringLiteral("<br/><br/>") +
                                                   tr("Выберете файл с размером не более %1 МБ.").arg(5));
    };
    if (QFileInfo(path).size() > sizeLimit) {
        refuse();
        return;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        LogText::warn(signature("void %1::createFileRequest()"),
                      LogText::fill(QStringLiteral("could not open file %1 for read!"), {path}));
        return;
    }
    const QByteArray content = file.read(sizeLimit + 1); // it may have grown, and a device reports no size
    if (content.size() > sizeLimit)
        refuse();
    else
        attach(recordKey, path, content);
}

void FilesPane::attach(const QByteArray& recordKey, const QString& path, const QByteArray& content)
{
    const QTextCodec* codec = source().module->session()->codec();
    const QString name = QFileInfo(path).fileName();
    const QString fittedName = FileNames::fitted(name, codec);
    const QByteArray key = GenGuid32();
    const QByteArray nameBytes = codec->fromUnicode(fittedName);
    const QByteArray worker = codec->fromUnicode(source().location->workerKey());

    CRowBatch batch(source().table->data);
    MDRData* row = batch.newRow(ROW_INSERT, key);
    batch.SetValF(row, Field::KeyLink, MDRValue::text(key));
    batch.SetValF(row, Field::WorkerKey, MDRValue::text(worker));
    batch.SetValF(row, Field::RecordKey, MDRValue::text(recordKey));
    batch.SetValF(row, Field::fileName, MDRValue::text(nameBytes));
    batch.SetValF(row, Field::fileData, MDRValue::text(content, mdr_TBlob));
    batch.RecPost(row);
    if (!send(batch)) {
        LogText::warn(
            signature("void %1::createFileRequest()"),
            LogText::fill(QStringLiteral("error save file in %1! Func SqlUpdate returned FALSE! Data: "
                                         "KeyLink(%2),recordKey(%3),fileName(%4)"),
                          {QLatin1String(LogbookTable::Files), QString::fromUtf8(key),
                           QString::fromUtf8(recordKey), fittedName}));
        source().messages->error(tr("Ошибка"), tr("Не удалось загрузить файл"));
        return;
    }
    if (fittedName != name.normalized(QString::NormalizationForm_C))
        emit source().module->app()->textAdjusted(
            tr("Имя файла записано как «%1»: в журнале нет некоторых его знаков.").arg(fittedName));
}

QString FilesPane::temporaryPath(const QString& name)
{
    if (!m_opened || !m_opened->isValid())
        m_opened = std::make_unique<QTemporaryDir>(QDir::tempPath() + QStringLiteral("/logbook-XXXXXX"));
    const QString folder = m_opened->filePath(QString::number(++m_openedCount));
    return m_opened->isValid() && QDir().mkdir(folder) ? folder + QLatin1Char('/') + FileNames::local(name)
                                                       : QString();
}

void FilesPane::openFileRequest()
{
    const MDRData* file = currentFile();
    if (!file)
        return;
    QByteArray content;
    const QString path = fetch(file, &content) ? temporaryPath(nameOf(file)) : QString();
    if (path.isEmpty() || !write(path, content)) {
        source().messages->error(tr("Ошибка"), tr("Не удалось открыть файл!"));
        return;
    }
    open(path);
}

void FilesPane::open(const QString& path)
{
    if (!RunnableFile::is(path)) {
        Desktop::current().open(QUrl::fromLocalFile(path));
        return;
    }
    m_runnable = path;
    source().messages->showMsgBox(
        tr("Открытие файла"),
        LogText::centered(tr("Файл «%1» может выполниться как программа. Открыть его?")
                              .arg(FileNames::shown(QFileInfo(path).fileName()).toHtmlEscaped())),
        MessageIconWarning, MessageTypeYesNo, this, SLOT(openRunnableAnswer(QAbstractButton*)));
}

void FilesPane::openRunnableAnswer(QAbstractButton* button)
{
    const bool isAgreed = isConfirmed(button);
    const QString path = std::exchange(m_runnable, QString());
    if (isAgreed && QFileInfo::exists(path))
        Desktop::current().open(QUrl::fromLocalFile(path));
}

void FilesPane::saveFileRequest()
{
    const MDRData* file = currentFile();
    if (!file)
        return;
    // A copy: while the user chooses a place, an event may remove the record.
    QByteArray content;
    const bool isFetched = fetch(file, &content);
    content.detach();
    const QString proposal = desktopFolder() + QLatin1Char('/') + FileNames::local(nameOf(file));
    const QString path = Desktop::current().askSaveFile(m_page, tr("Сохранение файла"), proposal);
    if (path.isEmpty()) { // deliberate: also if the user has cancelled
        source().messages->error(tr("Ошибка"), tr("Некорректный путь для сохранения файла!"));
        return;
    }
    if (!isFetched || !write(path, content)) {
        source().messages->error(tr("Ошибка"), tr("Не удалось сохранить файл!"));
        return;
    }
    m_page->setProperty(savedPath, path);
    source().messages->showMsgBox(tr("Открытие файла"), tr("Открыть файл, который был сохранен?"),
                                  MessageIconQuestion, MessageTypeYesNo, this,
                                  SLOT(openSavedFileAnswer(QAbstractButton*)));
}

void FilesPane::openSavedFileAnswer(QAbstractButton* button)
{
    const bool isAgreed = isConfirmed(button);
    if (!button)
        return;
    const QString path = m_page->property(savedPath).toString();
    m_page->setProperty(savedPath, QString());
    if (!isAgreed)
        return;
    if (QFileInfo::exists(path))
        open(path);
    else
        source().messages->error(tr("Ошибка открытия файла"), tr("Не удалось открыть файл!"));
}

void FilesPane::deleteByKey()
{
    if (m_controls.remove->isEnabled())
        deleteFileRequest();
}

void FilesPane::deleteFileRequest()
{
    ask(currentKey(), tr("Удаление файла"), tr("Вы действительно хотите удалить файл?"),
        SLOT(deleteFileAnswer(QAbstractButton*)));
}

void FilesPane::deleteFileAnswer(QAbstractButton* button)
{
    const bool isAgreed = isConfirmed(button);
    const MDRData* file = currentFile();
    if (isAgreed && file)
        remove(file, "void %1::deleteFileAnswer(QAbstractButton*)",
               QStringLiteral("error delete file from %1! Func SqlUpdate returned FALSE! Data: KeyLink(%2)"),
               tr("Не удалось удалить файл!"));
}
