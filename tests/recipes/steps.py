"""The next step of the schema, for recipes that need one."""
import re

from run import ROOT

SCRIPT = "platform/store/schema/SchemaScript.h"
PRESENT = int(re.search(r"constexpr int version = (\d+);", (ROOT / SCRIPT).read_text(encoding="utf-8"))[1])
NEXT = PRESENT + 1


def step(sqlite="", postgresql=""):
    return {
        SCRIPT: [(f"constexpr int version = {PRESENT};", f"constexpr int version = {NEXT};")],
        f"platform/store/schema/sqlite-{NEXT:04}.sql": f"-- Step {NEXT}.\n{sqlite}\n",
        f"platform/store/schema/postgresql-{NEXT:04}.sql": f"-- Step {NEXT}.\n{postgresql}\n",
    }
