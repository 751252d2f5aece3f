#pragma once

#include "CVrkCliMod.h"

/// The configurator of record templates: the frame that answers the host. Its pages are not there yet, so it
/// opens on a line that says so.
class CVrkTemplateEditor : public CVrkCliMod
{
    Q_OBJECT

public:
    explicit CVrkTemplateEditor(CVrkCliApp* app);

    bool ModuleStart() override;
    void ModuleStop() override;
    int MessageOn() override;
    int MessageData(HFNCliParam* block) override;
    int SetParamCommand(QString command) override;
    int SetParamProfile(QString profile) override;
    QString GetParamProfile() override;
    void SetParamState(QString state) override;
    QString GetParamState() override;
    void AppIdleEvent() override;
    void ModSesReconnect() override;
    void ModDataEditPost() override;
    void ModDataEditCancel() override;

private:
    void setModuleName(const QString& name);
};
