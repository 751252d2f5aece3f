#pragma once

#include "TemplateTab.h"

/// An action on a page of the configurator: an entry of a menu, or a button.
struct TemplateAction {
    const char* name = nullptr; ///< null for a line
    const char* text = nullptr; ///< source text in the context of TemplateTab
    const char* icon = nullptr;
    bool (TemplateTab::*isEnabled)() const = nullptr;
    void (TemplateTab::*request)() = nullptr;
};

/// The entries of the context menu; the first ones are also those of the button "Создать".
constexpr TemplateAction templateActions[] = {
    {"rootFolderAction", QT_TRANSLATE_NOOP("TemplateTab", "Категория"), "folder.png",
     &TemplateTab::isRootCreatable, &TemplateTab::createRootFolder},
    {"folderAction", QT_TRANSLATE_NOOP("TemplateTab", "Подкатегория"), "folder.png",
     &TemplateTab::isFolderCreatable, &TemplateTab::createFolder},
    {"templateAction", QT_TRANSLATE_NOOP("TemplateTab", "Шаблон"), "template.png",
     &TemplateTab::isTemplateCreatable, &TemplateTab::createTemplate},
    {},
    {"copyAction", QT_TRANSLATE_NOOP("TemplateTab", "Копировать"), "copy.png", &TemplateTab::canCopyCurrent,
     &TemplateTab::copyItem},
    {"pasteAction", QT_TRANSLATE_NOOP("TemplateTab", "Вставить"), "paste.png", &TemplateTab::canPasteHere,
     &TemplateTab::pasteItem},
};
constexpr int creatingActions = 3;
