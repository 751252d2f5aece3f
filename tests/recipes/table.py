"""A table of reference data: its grants, rules and log come from the catalog."""
from steps import step

TITLES = ["A new table", "A new schema step"]
FIELDS = "extern VRK_EXPORT const MDRFieldDescr OperLogCategoriesFields[5];"
EDITS = {
    "platform/hfn/ReferenceFields.h": [(FIELDS, f"extern VRK_EXPORT const MDRFieldDescr VehiclesFields[3];\n{FIELDS}")],
    "platform/hfn/ReferenceFields.cpp": [
        ("const MDRFieldDescr OperLogCategoriesFields[5]",
         "const MDRFieldDescr VehiclesFields[3] = {Field::KeyLink, Field::DepartmentKey, Field::name_};\n\n"
         "const MDRFieldDescr OperLogCategoriesFields[5]")],
    "platform/store/schema/TableCatalog.cpp": [
        ('        described("Equipment", EquipmentFields),\n',
         '        described("Equipment", EquipmentFields),\n        described("Vehicles", VehiclesFields),\n')],
    **step("CREATE TABLE Vehicles (KeyLink TEXT PRIMARY KEY NOT NULL, DepartmentKey TEXT, name_ TEXT) STRICT;",
           'CREATE TABLE Vehicles (KeyLink text COLLATE "C" PRIMARY KEY, DepartmentKey text COLLATE "C", '
           'name_ text COLLATE "C");'),
}


def carry_out(kitchen):
    kitchen.scratch.edit(EDITS)
    kitchen.scratch.build("vrk-admin")
    stores = kitchen.stores()
    for store in stores:
        kitchen.require(store.columns("Vehicles"), ["keylink", "departmentkey", "name_"], store.url)
        kitchen.require(store.refusal("INSERT INTO Vehicles (KeyLink) VALUES ('A')"),
                        "Справочники изменяются только средствами администратора.", store.url)
    for store in stores[2:]:
        store.server.psql(store.name, "SELECT set_config('vrk.batch_key', 'recipe', true), set_config('vrk.loader', 'on', "
                                      "true); INSERT INTO Vehicles (KeyLink, name_) VALUES ('A', 'van')")
        logged = store.server.psql(store.name, "SELECT rowKey, newRow FROM ChangeLog WHERE tableName = 'Vehicles'")
        kitchen.require(logged.stdout.strip(), 'A|["A",null,"van"]', store.url)
        kitchen.check(store)
