#pragma once

#include "TemplateTab.h"

/// A condition of a page, its own or one of its rules, as a plain function.
template <auto condition>
bool is(const TemplateTab& page)
{
    return (page.*condition)();
}

/// An action on a page of the configurator: an entry of a menu, or a button.
struct TemplateAction {
    const char* name = nullptr; ///< null for a line
    const char* text = nullptr; ///< source text in the context of TemplateTab
    const char* icon = nullptr;
    bool (*isEnabled)(const TemplateTab& page) = nullptr;
    void (TemplateTab::*request)() = nullptr;
};

/// The entries of the context menu; the first ones are also those of the button "Создать".
constexpr TemplateAction templateActions[] = {
    {"rootFolderAction", QT_TRANSLATE_NOOP("TemplateTab", "Категория"), "folder.png",
     is<&TemplateTab::isRootCreatable>, &TemplateTab::createRootFolder},
    {"folderAction", QT_TRANSLATE_NOOP("TemplateTab", "Подкатегория"), "folder.png",
     is<&TemplateTab::isFolderCreatable>, &TemplateTab::createFolder},
    {"templateAction", QT_TRANSLATE_NOOP("TemplateTab", "Шаблон"), "template.png",
     is<&TemplateTab::isTemplateCreatable>, &TemplateTab::createTemplate},
    {},
    {"copyAction", QT_TRANSLATE_NOOP("TemplateTab", "Копировать"), "copy.png",
     is<&TemplateTab::canCopyCurrent>, &TemplateTab::copyItem},
    {"pasteAction", QT_TRANSLATE_NOOP("TemplateTab", "Вставить"), "paste.png", is<&TemplateTab::canPasteHere>,
     &TemplateTab::pasteItem},
};
constexpr int creatingActions = 3;
