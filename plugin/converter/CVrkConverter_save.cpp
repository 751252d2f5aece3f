#include "CVrkConverter.h"

#include "ui_CVrkConverter.h"
#include "WriteBlock.h"

void CVrkConverter::sendToServer()
{
    m_form->saveButton->setEnabled(false);
    send(m_tables.paramCategories, m_tables.params, tr("Параметры успешно сохранены"),
         tr("CVrkCliSes::BlockEnd для параметров завершился с ошибкой"));
    send(m_tables.categories, m_tables.templates, tr("Шаблоны успешно сохранены"),
         tr("CVrkCliSes::BlockEnd для шаблонов завершился с ошибкой"));
}

/// Writes the created or changed rows of two tables as one block; only the block's end decides. Nothing is
/// reported if there is nothing to write.
void CVrkConverter::send(const CModelTable& first, const CModelTable& second, const QString& saved,
                         const QString& failed)
{
    bool sent = false;
    WriteBlock block(session());
    for (const CModelTable* table : {&first, &second}) {
        CModelTable edited(table->name);
        copyEdited(table, &edited.data);
        if (edited.data.RecCount() == 0)
            continue;
        session()->SqlUpdate(table->name.c_str(), edited.data.array, true, nullptr);
        sent = true;
    }
    const bool done = block.commit();
    if (sent && done)
        addGoodMessage(saved);
    else if (sent)
        addErrorInfo(failed);
}
