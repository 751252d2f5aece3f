#include "FileSaver.h"

#include "ShownText.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QRegularExpression>
#include <QSaveFile>
#include <QUrl>

namespace
{
constexpr int longestName = 180; // bytes: file systems allow 255, the suffix and a temporary ending need some
constexpr int longestShown = 80;

QString shown(const QString& text)
{
    return text.size() <= longestShown ? text : text.left(longestShown - 1) + QChar(0x2026);
}

QString reasonOf(const QSaveFile& failed)
{
    const QFileInfo file(failed.fileName());
    const QFileInfo folder(file.absolutePath());
    if (!folder.isDir())
        return FileSaver::tr("папки «%1» нет").arg(shown(folder.fileName()));
    if (file.isDir())
        return FileSaver::tr("так называется папка");
    if (file.exists() && !file.isWritable())
        return FileSaver::tr("прежний файл защищён от записи");
    if (!folder.isWritable())
        return FileSaver::tr("в папку «%1» нельзя писать").arg(shown(folder.fileName()));
    if (failed.error() == QFileDevice::ResourceError)
        return FileSaver::tr("на диске нет места");
    return failed.errorString();
}
} // namespace

FileSaver::Asking& FileSaver::asking()
{
    static Asking current{[](QWidget* parent, const Kind& kind, const QString& proposed) {
                              // The saver asks about an existing file itself: it knows the name with its suffix.
                              return QFileDialog::getSaveFileName(parent, kind.title, proposed, kind.filter,
                                                                  nullptr, QFileDialog::DontConfirmOverwrite);
                          },
                          [](const QUrl& url) { return QDesktopServices::openUrl(url); }};
    return current;
}

FileSaver::FileSaver(const Kind& kind, QWidget* parent) : NoticeBar(parent), m_kind(kind)
{
    setObjectName(QStringLiteral("fileSaver"));
    connect(this, &NoticeBar::chosen, this, &FileSaver::answer);
}

QString FileSaver::fileName(const QString& text)
{
    static const QRegularExpression refused(QStringLiteral("[\\x00-\\x1f\\x7f/\\\\:*?\"<>|]+"));
    static const QRegularExpression ends(QStringLiteral("^[ .\\-]+|[ .]+$"));
    QString name = QString(text).replace(refused, QStringLiteral(" ")).simplified().remove(ends);
    while (name.toUtf8().size() > longestName)
        name.chop(1);
    return name.remove(ends);
}

void FileSaver::save(const QString& folder, const QString& name, const Content& content)
{
    m_content = content;
    const QString base = fileName(name);
    ask(QDir(folder).filePath((base.isEmpty() ? tr("Журнал") : base) + QLatin1Char('.') + m_kind.suffix));
}

void FileSaver::ask(const QString& proposed)
{
    QString file = asking().file(window(), m_kind, proposed);
    if (file.isEmpty())
        return;
    if (QFileInfo(file).suffix().compare(m_kind.suffix, Qt::CaseInsensitive) != 0)
        file += QLatin1Char('.') + m_kind.suffix;
    if (!QFileInfo(file).isFile()) {
        write(file, m_content);
        return;
    }
    m_file = file;
    tell(Question, tr("Файл «%1» уже есть. Заменить его?").arg(shown(QFileInfo(file).fileName())),
         {{Replace, tr("Заменить"), QStringLiteral("replaceButton")},
          {Elsewhere, tr("Другое имя..."), QStringLiteral("elsewhereButton")},
          {Close, tr("Отмена"), QStringLiteral("closeButton")}});
    focusChoice(Elsewhere);
}

bool FileSaver::write(const QString& file, const Content& content)
{
    m_file = file;
    m_content = content;
    hide();
    QByteArray bytes;
    if (!content(&bytes))
        return false;
    QSaveFile target(file);
    // Without the flush, commit() does not notice that the last bytes could not be written.
    if (!target.open(QIODevice::WriteOnly) || target.write(bytes) != bytes.size() || !target.flush() ||
        !target.commit()) {
        fail(reasonOf(target));
        return false;
    }
    const QFileInfo saved(file);
    tell(Information,
         tr("Сохранено: «%1» в папке «%2».")
                 .arg(shown(saved.fileName()), shown(saved.absoluteDir().dirName())) +
             (m_remark.isEmpty() ? QString() : QLatin1Char(' ') + m_remark),
         {{OpenFile, tr("Открыть"), QStringLiteral("openButton")},
          {OpenFolder, tr("Открыть папку"), QStringLiteral("openFolderButton")},
          {Close, tr("Закрыть"), QStringLiteral("closeButton")}});
    setToolTip(ShownText::tip(QDir::toNativeSeparators(saved.absoluteFilePath())));
    focusChoice(OpenFile);
    return true;
}

void FileSaver::fail(const QString& reason)
{
    tell(Error, tr("Файл «%1» не сохранён: %2.").arg(shown(QFileInfo(m_file).fileName()), reason),
         {{Elsewhere, tr("Сохранить в другом месте..."), QStringLiteral("elsewhereButton")},
          {Close, tr("Закрыть"), QStringLiteral("closeButton")}});
    setToolTip(ShownText::tip(QDir::toNativeSeparators(m_file)));
    focusChoice(Elsewhere);
}

void FileSaver::answer(int id)
{
    const QString file = m_file;
    if (id == Replace)
        write(file, m_content);
    else if (id == Elsewhere)
        ask(file);
    else if (id == OpenFile)
        open(file);
    else if (id == OpenFolder)
        open(QFileInfo(file).absolutePath());
    else
        hide();
}

void FileSaver::open(const QString& path)
{
    const QString name = shown(QFileInfo(path).fileName());
    const QVector<Choice> choices{{Close, tr("Закрыть"), QStringLiteral("closeButton")}};
    if (!QFileInfo::exists(path))
        tell(Warning, tr("«%1» больше нет.").arg(name), choices);
    else if (!asking().open(QUrl::fromLocalFile(path)))
        tell(Warning, tr("Не удалось открыть «%1»: для этого нет программы.").arg(name), choices);
}
