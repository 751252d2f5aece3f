#pragma once

#include "CVrkCliMod.h"
#include "KeyNames.h"

#include <memory>

class ListOutput;
class QLabel;
class RecordList;

/// The window "Закладки": the records on which the user has set a bookmark (Bookmarks), from all shifts. It follows
/// their changes and the bookmarks, and changes nothing itself; the menu of a record removes its bookmark.
class CVrkBookmarks : public CVrkCliMod
{
    Q_OBJECT

public:
    explicit CVrkBookmarks(CVrkCliApp* app);
    ~CVrkBookmarks() override;

    /// On failure the window shows the reason in place of the list.
    bool ModuleStart() override;
    int MessageData(HFNCliParam* block) override;
    void ModSesReconnect() override { reload(); }

private:
    void makeOutput();
    void makeBar();
    void reload();

    KeyNames m_names;
    std::unique_ptr<RecordList> m_list;
    ListOutput* m_output = nullptr;
    QLabel* m_summary;
    bool m_isStarted = false;
};
