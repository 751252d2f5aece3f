#include "CVrkTemplateEditor.h"

#include <QLabel>

CVrkTemplateEditor::CVrkTemplateEditor(CVrkCliApp* app) : CVrkCliMod(app)
{
    auto* notice = new QLabel(tr("Этот модуль ещё не входит в поставку."));
    notice->setObjectName(QStringLiteral("notice"));
    notice->setAlignment(Qt::AlignCenter);
    setCentralWidget(notice);
    setModuleStyle();
}

bool CVrkTemplateEditor::ModuleStart()
{
    setModuleName(tr("Конфигуратор шаболнов Оперативного журнала"));
    return true;
}

void CVrkTemplateEditor::ModuleStop() {}

int CVrkTemplateEditor::MessageOn()
{
    return MessageGet();
}

int CVrkTemplateEditor::MessageData(HFNCliParam*)
{
    return 0;
}

int CVrkTemplateEditor::SetParamCommand(QString)
{
    return 0;
}

int CVrkTemplateEditor::SetParamProfile(QString)
{
    return 0;
}

QString CVrkTemplateEditor::GetParamProfile()
{
    return {};
}

void CVrkTemplateEditor::SetParamState(QString) {}

QString CVrkTemplateEditor::GetParamState()
{
    return {};
}

void CVrkTemplateEditor::ModSesReconnect() {}

void CVrkTemplateEditor::ModDataEditPost()
{
    SetIsEdit(false);
}

void CVrkTemplateEditor::ModDataEditCancel() {}

void CVrkTemplateEditor::AppIdleEvent() {}

void CVrkTemplateEditor::setModuleName(const QString& name)
{
    m_name = name;
    SetModTitle(name, QString());
}
