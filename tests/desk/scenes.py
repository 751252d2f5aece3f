"""The actions of people at their desks. After every key and click all checks of checks.py run."""
from datetime import datetime
import random

import checks

LONG_LIST = "Автоматическое отключение линии"


def sign_in(seat, login, department):
    """Through the dialog, only by keyboard."""
    seat.start()
    seat.open("SignInDialog")
    seat.expect_focus("loginCombo")
    for _ in range(40):
        if f"({login})" in seat.widget("loginCombo")["text"]:
            break
        seat.press("Down")
    seat.press("Home")
    while f"({login})" not in seat.widget("loginCombo")["text"]:
        seat.press("Down")
    combo = seat.widget("departmentCombo")
    if combo["enabled"] and not combo.get("text", "").startswith(department):
        seat.press("Tab")
        seat.expect_focus("departmentCombo")
        seat.press("Home")
        while not seat.widget("departmentCombo").get("text", "").startswith(department):
            seat.press("Down")
    seat.endure("SignInDialog", resizable=False)
    seat.press("Enter")
    seat.open("CVrkLogBook")


def records(tree):
    table = tree.one("recordsTable", inside="homeLogbook")
    return table.get("items", []) if table else []


def select_record(seat, text):
    """The last record with these words."""
    if "recordsTable" not in seat.tree().focus_path():
        seat.click("recordsTable", inside="homeLogbook")
    seat.press("End")
    for _ in records(seat.tree()):
        current = next(r for r in records(seat.tree()) if r["current"])
        if text in current["text"]:
            return current
        seat.press("Up")
    raise AssertionError(f"no record with {text}")


def record_menu(seat, entry):
    current = next(r for r in records(seat.tree()) if r["current"])
    seat.click(current, button=3)
    seat.menu(entry)


def write_record(seat, template, *values):
    before = len(records(seat.tree()))
    seat.press("Ctrl+N")
    seat.open("RecordCreatorDialog")
    seat.type(template)
    seat.press("Enter")
    seat.fill(*values)
    seat.press("Ctrl+Enter")
    seat.gone("RecordCreatorDialog")
    seat.wait(lambda tree: len(records(tree)) > before, "the new record")
    seat.expect_focus("recordsTable")


def long_list(seat):
    """A list of suggestions with more rows than it shows."""
    seat.press("Ctrl+N")
    seat.open("RecordCreatorDialog")
    seat.expect_focus("searchEdit")
    seat.type(LONG_LIST)
    seat.press("Enter")
    seat.press("Down")
    seat.expect(lambda tree: tree.shown("SuggestionPopup"), "Down opens no list of suggestions")
    seat.endure("RecordCreatorDialog")  # the list goes with its window
    seat.press("Down")
    seat.press("Down", "Down", "Page_Down", "Up")
    seat.press("Escape")
    seat.expect(lambda tree: not tree.shown("SuggestionPopup"), "Escape leaves the list of suggestions open")
    seat.expect(lambda tree: tree.shown("RecordCreatorDialog"), "Escape in the list has closed the dialog")
    seat.press("Down", "Enter")
    seat.endure("RecordCreatorDialog")
    seat.press("Escape")
    seat.press("Escape")  # the answer that loses nothing
    seat.expect(lambda tree: tree.shown("RecordCreatorDialog"), "two times Escape lose what was typed")
    seat.press("Escape")
    seat.click("dropTextButton", inside="RecordCreatorDialog")
    seat.gone("RecordCreatorDialog")
    seat.expect_focus("recordsTable")


def start(desk, login, department="ЦДС", module="logbook"):
    seat = desk.seat(login)
    seat.start("--user", login, "--department", department, "--module", module)
    return seat


def night(desk):
    """Records of a shift, with a colleague at the next desk."""
    seat = desk.seat("ozerov")
    sign_in(seat, "ozerov", "ЦДС")
    seat.expect_focus("recordsTable")
    colleague = start(desk, "roshchin")
    colleague.open("CVrkLogBook")
    seat.endure("CVrkLogBook", resizable=False)
    long_list(seat)

    text = "течь масла, 1 капля за 20 с"
    write_record(seat, "обнаружен", "Ольховка", "осмотре", "Т-1, ввод 35 кВ фазы В", "35", text, "Туманов",
                 "установлен контроль через каждые 2 ч", "26.11.2026 12:00")
    seat.expect(lambda tree: any(text in r["text"] for r in records(tree)), "the record is not in the table")
    colleague.wait(lambda tree: any(text in r["text"] for r in records(tree)), "the record at the next desk")
    comment(seat, text)
    approve(seat, text)
    execution(seat, text)
    visa(colleague, text)
    attach(seat, text)
    second_marker(seat)
    copy_paste(seat)
    leave(seat)
    leave(colleague)


def past(desk):
    """Searching, other periods, a report."""
    seat = start(desk, "ozerov")
    seat.open("CVrkLogBook")
    find(seat)
    period(seat)
    report(seat)
    shift_info(seat)
    leave(seat)


def handover(desk):
    """A worker is added, the shift is closed, the next one is opened at another desk."""
    seat, colleague = start(desk, "ozerov"), start(desk, "gorin")
    for one in (seat, colleague):
        one.open("CVrkLogBook")
    add_worker(seat)
    hand_over(seat)
    open_shift(seat, colleague)
    leave(seat)
    leave(colleague)


def door(desk):
    """Without a store: an address is typed, the next time it is in the list."""
    seat = desk.seat("ozerov")
    seat.start(asks=True)
    seat.open("StoreDialog")
    seat.expect_focus("addressEdit")
    seat.type(desk.store.replace("sqlite://", ""))
    seat.endure("StoreDialog")
    seat.press("Enter")
    seat.open("SignInDialog")
    seat.press("Enter")
    seat.open("CVrkLogBook")
    leave(seat)
    for away in (lambda: seat.press("Escape"), lambda: seat.close_by_frame("StoreDialog")):
        seat.start(asks=True)
        seat.open("StoreDialog")
        seat.expect(lambda tree: any("store.sqlite" in i["text"] for i in tree.one("recentList")["items"]), "the store is not in the list")
        away()
        if seat.alive() and seat.ended():
            seat.faults.add(seat, "leave", "the program ends with an error", seat.tree())


def dialogs(desk):
    """Each dialog of the journal, in the dark, left by Escape and by its frame: nothing is written, the keyboard goes back."""
    seat = start(desk, "ozerov")
    seat.open("CVrkLogBook")
    seat.press("Ctrl+Shift+D")
    write_record(seat, "обнаружен", "Ольховка", "осмотре", "Т-1, ввод 35 кВ фазы В", "35", "течь масла", "Туманов", "контроль",
                 "26.11.2026 12:00")
    before = len(records(seat.tree()))
    if not seat.tree().one("createCommentButton", inside="homeLogbook"):
        seat.press("F4")
        seat.wait(lambda tree: "additionalTab" in tree.focus_path(), "the panes to take the keyboard")
        select_record(seat, "течь масла")
    shift = lambda entry: seat.drop("workshiftButton", entry)
    leave_both_ways(seat, "RecordCreatorDialog", lambda: seat.press("Ctrl+N"))
    leave_both_ways(seat, "RecordCreatorDialog", lambda: seat.click(next(r for r in records(seat.tree()) if r["current"]), times=2))
    leave_both_ways(seat, "CPopMessageBox", lambda: seat.click("approveButton"))
    leave_both_ways(seat, "TimeExecutionDialog", lambda: seat.click("executionButton"))
    leave_both_ways(seat, "CommentCreatorDialog", lambda: seat.click("createCommentButton", inside="homeLogbook"))
    leave_both_ways(seat, "ReportDialog", lambda: seat.press("Ctrl+P"))
    leave_both_ways(seat, "DateTimeRangeDialog", lambda: seat.drop("timeButton", "Выбрать интервал"))
    leave_both_ways(seat, "WorkshiftsDialog", lambda: seat.drop("timeButton", "Выбрать смену"))
    leave_both_ways(seat, "WorkshiftInfoDialog", lambda: shift("Информация о смене"))
    leave_both_ways(seat, "AppendWorkerDialog", lambda: shift("Добавить диспетчера в смену"))
    leave_both_ways(seat, "CPopMessageBox", lambda: shift("Закрыть смену"))
    shift("Добавить диспетчера в смену")
    seat.open("AppendWorkerDialog")
    leave_both_ways(seat, "OrgStructDialog", lambda: seat.click("addButton", inside="AppendWorkerDialog"), back="AppendWorkerDialog")
    seat.press("Escape")
    seat.gone("AppendWorkerDialog")
    seat.expect(lambda tree: len(records(tree)) == before, "a dialog that was left has written something")
    seat.press("Ctrl+Shift+D")
    leave(seat)


def leave_both_ways(seat, cls, show, back="recordsTable"):
    for away in (lambda: seat.press("Escape"), lambda: seat.close_by_frame(cls)):
        show()
        seat.open(cls)
        away()
        seat.gone(cls)
        seat.expect_focus(back)


def comment(seat, text):
    select_record(seat, text)
    if not seat.tree().one("createCommentButton", inside="homeLogbook"):
        seat.press("F4")  # with large letters the panes are hidden at first
    seat.click("createCommentButton", inside="homeLogbook")
    seat.open("CommentCreatorDialog")
    seat.expect_focus("commentEdit")
    seat.type("Передано в службу РЗА № 5.")
    seat.endure("CommentCreatorDialog")
    seat.click("applyButton", inside="CommentCreatorDialog")
    seat.gone("CommentCreatorDialog")
    seat.expect(lambda tree: tree.one("commentsList", inside="homeLogbook") and tree.one("commentsList", inside="homeLogbook").get("items"),
                "the comment is not in the list")


def dialog_with_time(seat, cls, choose):
    """A small dialog with a date and a time: typed values are kept."""
    seat.open(cls)
    seat.click(choose, inside=cls)
    seat.click("dateEdit", inside=cls)
    seat.press("Tab")
    seat.type("0203")
    typed = seat.widget("timeEdit", inside=cls)["text"]
    seat.expect(lambda _: typed == "02:03", f"02:03 was typed into {cls}, it shows {typed}")
    seat.endure(cls)


def show_second_marker(seat):
    current = next(r for r in records(seat.tree()) if r["current"])
    seat.click(current, button=3)
    entry = next(i for m in seat.tree().find("recordMenu") for i in m.get("items", [])[1:2])
    seat.click(entry)


def second_marker(seat):
    select_record(seat, "Установил")
    show_second_marker(seat)
    dialog_with_time(seat, "SecondMarkerDialog", "setMarkCheck")
    seat.press("Escape")
    seat.gone("SecondMarkerDialog")
    seat.expect_focus("recordsTable")
    show_second_marker(seat)
    seat.open("SecondMarkerDialog")
    seat.click("setMarkCheck", inside="SecondMarkerDialog")
    seat.click("applyButton", inside="SecondMarkerDialog")
    seat.gone("SecondMarkerDialog")
    show_second_marker(seat)
    seat.open("SecondMarkerDialog")
    seat.expect(lambda tree: tree.one("setMarkCheck")["checked"], "the second marker was not set")
    seat.press("Escape")
    seat.gone("SecondMarkerDialog")


def approve(seat, text):
    select_record(seat, text)
    seat.click("approveButton")
    seat.open("CPopMessageBox")
    seat.endure("CPopMessageBox", resizable=False)
    seat.click_button("Да", inside="CPopMessageBox")
    seat.gone("CPopMessageBox")
    seat.expect_focus("recordsTable")


def execution(seat, text):
    seat.click("executionButton")
    dialog_with_time(seat, "TimeExecutionDialog", "readyCheck")
    seat.close_by_frame("TimeExecutionDialog")
    seat.gone("TimeExecutionDialog")
    seat.expect_focus("recordsTable")
    seat.click("executionButton")
    seat.open("TimeExecutionDialog")
    seat.click("readyCheck", inside="TimeExecutionDialog")
    seat.click("applyButton", inside="TimeExecutionDialog")
    seat.gone("TimeExecutionDialog")
    seat.wait(lambda tree: any(text in r["text"] and "Не выполнено" not in r["text"] for r in records(tree)), "the time of execution")
    seat.expect_focus("recordsTable")


def visa(seat, text):
    """On the record of another."""
    select_record(seat, text)
    seat.wait(lambda tree: tree.one("signButton")["enabled"], "the visa to be offered")
    seat.click("signButton")
    seat.expect(lambda tree: not tree.shown("CPopMessageBox"), "the visa brings a message")


def attach(seat, text):
    """The list of files, and a cancelled file dialog."""
    select_record(seat, text)
    seat.click(seat.item("qt_tabwidget_tabbar", "Файлы", inside="additionalTab"))
    seat.click("createFileButton", inside="homeLogbook")
    seat.open("QFileDialog")
    seat.endure("QFileDialog")
    seat.press("Escape")
    seat.gone("QFileDialog")
    name = "note-1.txt"
    with open(f"{seat.folder}/{name}", "w") as file:
        file.write("ok")
    seat.click("createFileButton", inside="homeLogbook")
    seat.open("QFileDialog")
    seat.click(seat.item("treeView", name, inside="QFileDialog"), times=2)
    seat.gone("QFileDialog")
    seat.item("filesTable", name, inside="homeLogbook")


def copy_paste(seat):
    before = len(records(seat.tree()))
    record_menu(seat, "Копировать запись")
    record_menu(seat, "Вставить запись")
    seat.wait(lambda tree: len(records(tree)) > before, "the pasted record")


def find(seat):
    seat.press("Ctrl+F")
    seat.expect_focus("searchEdit")
    seat.type("заземл")
    seat.press("Enter", "Enter")
    seat.expect(lambda tree: any(r["current"] and "заземл" in r["text"].lower() for r in records(tree)), "the search leads nowhere")
    seat.press("Escape")
    seat.expect(lambda tree: not tree.find("searchEdit", inside="homeLogbook"), "Escape does not close the search")
    seat.expect_focus("recordsTable")


def shown_period(tree):
    """The text of the bar; the rows that are visible depend on the hour."""
    return tree.one("intervalLabel").get("text", "")


def period(seat):
    seat.drop("timeButton", "Выбрать интервал")
    seat.open("DateTimeRangeDialog")
    seat.press("Escape")
    seat.gone("DateTimeRangeDialog")
    seat.drop("timeButton", "Выбрать интервал")
    seat.open("DateTimeRangeDialog")
    seat.click("startDateEdit", inside="DateTimeRangeDialog")
    seat.press("Home", "Down")
    seat.endure("DateTimeRangeDialog")
    seat.click("applyButton", inside="DateTimeRangeDialog")
    seat.gone("DateTimeRangeDialog")
    seat.wait(lambda tree: shown_period(tree).startswith("Время:") and records(tree), "the records of the interval")
    seat.drop("timeButton", "Текущая смена")
    seat.wait(lambda tree: shown_period(tree).startswith("Смена:") and records(tree), "the shift")
    seat.drop("timeButton", "Выбрать смену")
    seat.open("WorkshiftsDialog")
    seat.press("Down")
    seat.endure("WorkshiftsDialog")
    seat.close_by_frame("WorkshiftsDialog")
    seat.gone("WorkshiftsDialog")


def report(seat):
    seat.press("Ctrl+P")
    seat.open("ReportDialog")
    seat.click("onlyApprovedButton", inside="ReportDialog")
    seat.endure("ReportDialog")
    leave_both_ways(seat, "VrkPreviewWindow", lambda: seat.press("Ctrl+P"), back="ReportDialog")
    seat.press("Ctrl+P")
    seat.open("VrkPreviewWindow")
    seat.endure("VrkPreviewWindow")
    seat.press("Escape")
    seat.gone("VrkPreviewWindow")
    seat.press("Escape")
    seat.gone("ReportDialog")


def shift_info(seat):
    seat.drop("workshiftButton", "Информация о смене")
    seat.open("WorkshiftInfoDialog")
    seat.endure("WorkshiftInfoDialog")
    seat.press("Escape")
    seat.gone("WorkshiftInfoDialog")


def choose_worker(seat, dialog, name):
    """From the organization tree of a dialog, which gets the focus back afterwards."""
    seat.open("OrgStructDialog")
    seat.type(name)
    seat.endure("OrgStructDialog")
    seat.press("Enter")
    seat.gone("OrgStructDialog")
    seat.expect_focus(dialog)


def add_worker(seat):
    before = len(records(seat.tree()))
    seat.drop("workshiftButton", "Добавить диспетчера в смену")
    seat.open("AppendWorkerDialog")
    seat.click("addButton", inside="AppendWorkerDialog")
    choose_worker(seat, "AppendWorkerDialog", "Травин")
    seat.endure("AppendWorkerDialog")
    seat.click("applyButton", inside="AppendWorkerDialog")
    seat.gone("AppendWorkerDialog")
    seat.wait(lambda tree: len(records(tree)) > before, "the record about the worker")


def ask_to_close(seat):
    seat.drop("workshiftButton", "Закрыть смену")
    seat.open("CPopMessageBox")
    seat.click_button("Да", inside="CPopMessageBox")


def hand_over(seat):
    leave_both_ways(seat, "CloseWorkshiftDialog", lambda: ask_to_close(seat))
    ask_to_close(seat)
    seat.open("CloseWorkshiftDialog")
    for name in ("Горин", "Ручьёва"):
        seat.click("addWorkerButton", inside="CloseWorkshiftDialog")
        choose_worker(seat, "CloseWorkshiftDialog", name)
    seat.click("parameterInput_0", inside="CloseWorkshiftDialog")
    seat.press("Ctrl+A")
    seat.fill("Озеров", "Горин", "2", "1", "ВЛ 110 кВ Полевая – Заречная".replace("–", "-"), "нет")
    seat.endure("CloseWorkshiftDialog")
    seat.click("closeWorkshiftButton")
    seat.gone("CloseWorkshiftDialog")
    seat.wait(lambda tree: not tree.one("createButton")["enabled"] or "закрыта" in tree.one("statusLabel").get("text", ""),
              "the shift to be closed")


def open_shift(seat, colleague):
    colleague.wait(lambda tree: "закрыта" in tree.one("statusLabel").get("text", ""), "the closed shift at the next desk")
    leave_both_ways(colleague, "OpenWorkshiftDialog", lambda: colleague.drop("workshiftButton", "Открыть смену"))
    colleague.drop("workshiftButton", "Открыть смену")
    colleague.open("OpenWorkshiftDialog")
    colleague.click("addWorkerButton", inside="OpenWorkshiftDialog")
    choose_worker(colleague, "OpenWorkshiftDialog", "Ручьёва")
    tree = colleague.tree()
    ended = datetime.strptime(tree.one("intervalLabel")["text"].split(" - ")[1], "%d.%m.%Y %H:%M")
    end = "08:07"
    if tree.one("startDateEdit")["text"] != ended.strftime("%d.%m.%Y"):
        # In the evening the closed shift ends tomorrow, but the timetable's shifts have the date of today.
        end = "20:07"
        for edit in ("startDateEdit", "endDateEdit"):
            colleague.click(edit, inside="OpenWorkshiftDialog")
            colleague.press("Shift+Tab", "Tab")  # selects the day
            colleague.type(ended.strftime("%d%m%Y"))
    elif tree.one("startTimeEdit")["text"] < ended.strftime("%H:%M"):
        # The closed shift lasted longer than the timetable says.
        colleague.click("startDateEdit", inside="OpenWorkshiftDialog")
        colleague.press("Tab")
        colleague.type(ended.strftime("%H%M"))
    colleague.click("endDateEdit", inside="OpenWorkshiftDialog")
    colleague.press("Tab")
    colleague.type(end.replace(":", ""))
    colleague.expect(lambda tree: tree.one("endTimeEdit").get("text") == end, end + " was typed into the end of the shift")
    colleague.endure("OpenWorkshiftDialog")
    colleague.click("parameterInput_5", inside="OpenWorkshiftDialog")
    colleague.fill("отклонения", "исправны")
    colleague.click("applyButton", inside="OpenWorkshiftDialog")
    colleague.gone("OpenWorkshiftDialog")
    for one in (colleague, seat):
        one.wait(lambda tree: "Смена открыта" in tree.one("statusLabel").get("text", ""), "the shift to be open")


def leave(seat, window="CVrkLogBook"):
    seat.close_by_frame(window)
    if seat.alive() and seat.ended():
        seat.faults.add(seat, "leave", "the program ends with an error", seat.tree())


def configurator(desk):
    """The administrator makes a template."""
    seat = start(desk, "admin", module="template")
    seat.open("CVrkTemplateEditor")
    seat.expect_focus("templatesTree")
    page = "publicTemplates"
    seat.click(seat.item("qt_tabwidget_tabbar", "Общие шаблоны"))
    seat.click("searchEdit", inside=page)
    seat.type("Оперативная смена")
    seat.press("Enter")
    seat.drop("createButton", "Шаблон")
    seat.type("Смена принята на щите")
    seat.click("templateText", inside=page)
    seat.type("Смену приняли: ")
    seat.click("findParameterButton", inside=page)
    seat.expect_focus("parameterSearch")
    seat.type("состав смены с группами")
    seat.press("Enter")
    seat.expect_focus("templateText")
    seat.type(". Схема сверена по щиту.")
    seat.endure("CVrkTemplateEditor")
    seat.press("Ctrl+S")
    seat.wait(lambda tree: not tree.one("saveButton")["enabled"], "the template to be saved")
    seat.type(" Замечаний нет.")
    seat.press("Escape")
    seat.wait(lambda tree: not tree.one("saveButton")["enabled"], "the changes to be dropped")
    seat.expect(lambda tree: "Замечаний" not in tree.one("templateText", inside=page).get("text", ""), "Escape drops nothing")
    seat.close_by_frame("CVrkTemplateEditor")
    if seat.alive():
        seat.ended()


def converter(desk):
    """The administrator takes over the templates of the earlier journal."""
    seat = start(desk, "admin", module="converter")
    seat.open("CVrkConverter")
    seat.endure("CVrkConverter")
    seat.click("convertButton")
    seat.wait(lambda tree: tree.one("saveButton")["enabled"], "the conversion to end")
    seat.expect_focus("saveButton")
    seat.endure("CVrkConverter")
    seat.click("reportButton")
    seat.open("QFileDialog")
    seat.press("Escape")
    seat.gone("QFileDialog")
    seat.click("saveButton")
    seat.wait(lambda tree: tree.one("infoEdit").get("text", "").endswith("Шаблоны успешно сохранены"), "the templates to be saved")
    seat.close_by_frame("CVrkConverter")
    if seat.alive():
        seat.ended()


def archive(desk):
    """Each window of the second plug-in, from the largest to the smallest size."""
    seat = desk.seat("ozerov")
    for module, window in (("unfinished", "CVrkUnfinished"), ("archive", "CVrkArchive"), ("bookmarks", "CVrkBookmarks"),
                           ("history", "CVrkHistory"), ("past", "CVrkPast"), ("statistics", "CVrkStatistics")):
        seat.start("--user", "ozerov", "--department", "ЦДС", "--module", module)
        seat.open(window)
        seat.endure(window)
        leave(seat, window)


def directory(desk):
    """The administrator mends a role in the window of the reference data."""
    seat = desk.seat("admin")
    seat.run("vrk-directory", desk.store)
    seat.open("DirectoryWindow")
    seat.endure("DirectoryWindow")
    seat.click(seat.item("sheets", "Должности"))
    seat.press("Ctrl+F")
    seat.expect_focus("search")
    seat.type("дежурный энерг")
    seat.wait(lambda tree: len({i["rect"][1] for i in tree.one("table").get("items", [])}) == 1, "one row to be found")
    x, y, width, height = seat.item("table", "Дежурный энергетик")["rect"]
    seat.screen.click(x + width - 40, y + height // 2, times=2)
    seat.wait(lambda tree: tree.focus() and tree.focus()["class"] == "QLineEdit" and tree.focus()["name"] != "search", "an editor")
    seat.press("End")
    seat.type(" смены")
    seat.press("Enter")
    seat.press("Ctrl+S")
    seat.open("SaveDialog")
    seat.endure("SaveDialog")
    seat.press("Escape")
    seat.gone("SaveDialog")
    seat.press("Ctrl+S")
    seat.open("SaveDialog")
    seat.press("Enter")
    seat.gone("SaveDialog")
    seat.expect(lambda tree: any("Записано" in (w.get("text") or "") for w in tree.find(inside="notice")), "nothing says that it was written")
    seat.screen.place(int(seat.frame("DirectoryWindow").wid), 60, 50, 900, 560)
    seat.calm()
    place = seat.frame("DirectoryWindow").rect
    seat.close_by_frame("DirectoryWindow")
    if seat.ended():
        seat.faults.add(seat, "leave", "the program ends with an error", None)
    seat.run("vrk-directory", desk.store)
    seat.open("DirectoryWindow")
    seat.expect(lambda tree: all(abs(a - b) <= 1 for a, b in zip(seat.frame("DirectoryWindow").rect, place)),
                lambda tree: f"the window is at {seat.frame('DirectoryWindow').rect}, it was at {place}")
    seat.click(seat.item("sheets", "Должности"))
    seat.item("table", " смены")
    seat.close_by_frame("DirectoryWindow")


def monkey(desk):
    """Keys, clicks and actions of a frame, in a random order; the same number repeats it."""
    seed = desk.options.seed
    print(f"   monkey number {seed}", flush=True)
    dice = random.Random(seed)
    seat = start(desk, "ozerov")
    seat.open("CVrkLogBook")
    for number in range(desk.options.keys):
        if not seat.alive():
            if seat.process.returncode:
                raise AssertionError(f"after {number} steps the program has ended with {seat.process.returncode}")
            seat.start("--user", "ozerov", "--department", "ЦДС")
        monkey_step(seat, dice)


def monkey_step(seat, dice):
    tree = seat.tree()
    windows = [w for w in seat.windows(tree) if w.managed]
    kind = dice.random()
    active = tree.by_id.get(tree.report["active"])
    if active and active["class"] in checks.NOT_OURS:
        seat.press("Escape")
    elif not windows:
        seat.screen.activate(int(next(w["wid"] for w in tree.windows if w["shown"])))
        seat.calm()
    elif kind < 0.35:
        seat.press(dice.choice(["Tab", "Tab", "Shift+Tab", "Enter", "Escape", "Down", "Up", "Space", "Home", "End", "Page_Down", "F4",
                                "Ctrl+N", "Ctrl+F", "Ctrl+P", "Ctrl+Enter", "Delete", "Ctrl+C", "Ctrl+V", "Alt+Down", "F5", "Left"]))
    elif kind < 0.5:
        seat.type(dice.choice(["вл", "ольх", "автоматическое", "12", "горин", "о", "течь масла", "0315"]))
    elif kind < 0.88:
        active = tree.by_id.get(tree.report["popup"] or tree.report["active"])
        choice = [w for w in tree.find() if w["window"] is active and w["enabled"] and w["rect"][2] > 4 and not w.get("children")]
        items = [i for w in choice for i in w.get("items", []) if i["rect"][2] > 4 and i["rect"][3] > 4 and i["enabled"]]
        target = dice.choice(items if items and dice.random() < 0.4 else choice) if choice else None
        if target:
            seat.click(target, button=3 if dice.random() < 0.1 else 1, times=2 if dice.random() < 0.1 else 1)
    elif kind < 0.92:
        seat.screen.minimise(windows[-1].wid)
        seat.calm()
        seat.look("minimised")
        seat.screen.activate(windows[-1].wid)
        seat.calm()
        seat.look("restored")
    elif kind < 0.97:
        seat.screen.place(windows[-1].wid, dice.randrange(100), dice.randrange(50), dice.choice([1, 800, 1000]), dice.choice([1, 400, 600]))
        seat.calm()
        seat.look("resized")
    else:
        seat.close_by_frame(windows[-1])
