#include "CVrkConverter.h"

#include <QLabel>

CVrkConverter::CVrkConverter(CVrkCliApp* app) : CVrkCliMod(app)
{
    auto* notice = new QLabel(tr("Этот модуль ещё не входит в поставку."));
    notice->setObjectName(QStringLiteral("notice"));
    notice->setAlignment(Qt::AlignCenter);
    setCentralWidget(notice);
    setModuleStyle();
}

bool CVrkConverter::ModuleStart()
{
    setModuleName(tr("Конвертер шаблонов и параметров ОЖ"));
    return true;
}

void CVrkConverter::ModuleStop() {}

int CVrkConverter::MessageOn()
{
    return MessageGet();
}

/// The converter follows no events: every message is taken as done, unread.
int CVrkConverter::MessageData(HFNCliParam*)
{
    return 1;
}

void CVrkConverter::AppIdleEvent() {}

void CVrkConverter::setModuleName(const QString& name)
{
    m_name = name;
    SetModTitle(name, QString());
}
