#pragma once

#include "CVrkCliMod.h"

/// The converter of the earlier journal: the frame that answers the host. Its rules are not there yet, so it
/// opens on a line that says so.
class CVrkConverter : public CVrkCliMod
{
    Q_OBJECT

public:
    explicit CVrkConverter(CVrkCliApp* app);

    bool ModuleStart() override;
    void ModuleStop() override;
    int MessageOn() override;
    int MessageData(HFNCliParam* block) override;
    void AppIdleEvent() override;

private:
    void setModuleName(const QString& name);
};
