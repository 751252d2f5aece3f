"""A rule for writes of persons. Without a new version, upgrade reports the stores that do not have it."""
from steps import PRESENT, step

TITLES = ["A new rule", "A new schema step"]
REASON = "Время прочтения раньше комментария."
RULES = {
    "platform/store/schema/rules.sql": [
        ("RULE Rule_Comments_delete ", f"RULE Rule_Comments_readedTime BEFORE UPDATE ON LogbookComments\n    REFUSE "
                                       f"'{REASON}'\n    WHERE CHANGED(readedTime) AND NEW.readedTime <> 0 AND "
                                       "NEW.readedTime < NEW.commentTime;\nEND;\n\nRULE Rule_Comments_delete ")],
}
STEP = step()
EDITS = {**RULES, **STEP}


def carry_out(kitchen):
    kitchen.scratch.edit(RULES)
    kitchen.scratch.build("vrk-admin")
    for store in kitchen.former:
        report = kitchen.scratch.run("vrk-admin", "upgrade", store.url, "--no-backup", code=3).lower()
        kitchen.require("rule_comments_readedtime" in report, True, f"{store.url} of version {PRESENT}: {report}")
    kitchen.scratch.edit(STEP)
    kitchen.scratch.build("vrk-admin")
    for store in kitchen.stores()[::2]:  # those with comments
        kitchen.require(store.refusal("UPDATE LogbookComments SET readedTime = 1"), REASON, store.url)
        kitchen.require(store.refusal("UPDATE LogbookComments SET readedTime = commentTime + 1"), "", store.url)
