"""A field of records, stored on both engines. Rules protect it although none of them names it."""
from steps import step

TITLES = ["A field on both engines", "A new schema step"]
EDITS = {
    "platform/hfn/Fields.h": [('inline constexpr NumberField status("status");',
                               'inline constexpr NumberField status("status");\n'
                               'inline constexpr MemoField weather("weather");')],
    "platform/hfn/LogbookFields.h": [("LogbookRecordFields[15]", "LogbookRecordFields[16]"),
                                     ("LogbookRecordExtFields[18]", "LogbookRecordExtFields[19]")],
    "platform/hfn/LogbookFields.cpp": [("        Field::direction\n", "        Field::direction, Field::weather\n"),
                                       ("LogbookRecordFields[15]", "LogbookRecordFields[16]"),
                                       ("LogbookRecordExtFields[18]", "LogbookRecordExtFields[19]")],
    **step("ALTER TABLE LogbookRecords ADD weather TEXT;", 'ALTER TABLE LogbookRecords ADD weather text COLLATE "C";'),
}


def carry_out(kitchen):
    kitchen.scratch.edit(EDITS)
    kitchen.scratch.build("vrk-admin", "TableCatalog_test", "LogBookWidget_load_test")
    kitchen.scratch.run("TableCatalog_test")
    kitchen.scratch.run("LogBookWidget_load_test")
    stores = kitchen.stores()
    for store in stores:
        kitchen.require(store.columns("LogbookRecords")[-2:], ["direction", "weather"], store.url)
    for store in stores[::2]:  # those with records
        kitchen.require(store.refusal("UPDATE LogbookRecords SET weather = 'snow' WHERE status = 0"),
                        "Утверждённая запись не изменяется.", store.url)
