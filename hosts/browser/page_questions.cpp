// Dialogs and select fields as questions.
#include "page_questions.h"

#include <string>
#include <vector>

namespace host
{

namespace
{

struct DialogForm {
    WebKitScriptDialogType type;
    bool hasLine;
    std::vector<Question::Choice> choices;
};

const DialogForm& formOf(WebKitScriptDialogType type)
{
    static const DialogForm kForms[] = {
        {WEBKIT_SCRIPT_DIALOG_ALERT, false, {{"OK"}}},
        {WEBKIT_SCRIPT_DIALOG_CONFIRM, false, {{"OK"}, {"Cancel"}}},
        {WEBKIT_SCRIPT_DIALOG_PROMPT, true, {{"OK"}, {"Cancel"}}},
        {WEBKIT_SCRIPT_DIALOG_BEFORE_UNLOAD_CONFIRM, false, {{"Leave"}, {"Stay"}}},
    };
    for (const DialogForm& form : kForms)
        if (form.type == type)
            return form;
    return kForms[0];
}

void answerDialog(WebKitScriptDialog* dialog, bool agreed, const std::string& line)
{
    const WebKitScriptDialogType type = webkit_script_dialog_get_dialog_type(dialog);
    if (type == WEBKIT_SCRIPT_DIALOG_CONFIRM || type == WEBKIT_SCRIPT_DIALOG_BEFORE_UNLOAD_CONFIRM)
        webkit_script_dialog_confirm_set_confirmed(dialog, agreed);
    if (type == WEBKIT_SCRIPT_DIALOG_PROMPT && agreed)
        webkit_script_dialog_prompt_set_text(dialog, line.c_str());
    webkit_script_dialog_close(dialog);
    webkit_script_dialog_unref(dialog);
}

} // namespace

PageQuestion questionOf(WebKitScriptDialog* dialog)
{
    const DialogForm& form = formOf(webkit_script_dialog_get_dialog_type(dialog));
    Question question = {webkit_script_dialog_get_message(dialog), form.choices, 0, form.hasLine,
                         ""};
    if (form.hasLine)
        question.line = webkit_script_dialog_prompt_get_default_text(dialog);
    webkit_script_dialog_ref(dialog);
    return {question, [dialog](int choice, const std::string& line) {
                answerDialog(dialog, choice == 0, line);
            }};
}

PageQuestion questionOf(WebKitOptionMenu* menu, Panel& panel)
{
    Question question;
    for (unsigned i = 0; i < webkit_option_menu_get_n_items(menu); ++i) {
        WebKitOptionMenuItem* item = webkit_option_menu_get_item(menu, i);
        if (webkit_option_menu_item_is_selected(item))
            question.chosen = i;
        question.choices.push_back({webkit_option_menu_item_get_label(item),
                                    webkit_option_menu_item_is_enabled(item) != FALSE});
    }
    g_object_ref(menu);
    const gulong closed = g_signal_connect_swapped(
        menu, "close", G_CALLBACK(+[](Panel* open) { open->withdraw(); }), &panel);
    return {question, [menu, closed](int choice, const std::string&) {
                g_signal_handler_disconnect(menu, closed);
                if (choice >= 0)
                    webkit_option_menu_activate_item(menu, static_cast<unsigned>(choice));
                else
                    webkit_option_menu_close(menu);
                g_object_unref(menu);
            }};
}

} // namespace host
