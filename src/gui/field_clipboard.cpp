#include "gui/field_clipboard.h"

#include "base/jobs.h"
#include "base/utf8.h"
#include "gui/elements.h"
#include "gui/field_selection.h"
#include "gui/text_field.h"
#include "platform/clipboard.h"
#include "state/flow.h"
#include "state/run.h"
#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace nubo {
namespace {

const std::array<std::string, 2> text_kinds{"UTF8_STRING", "text/plain;charset=utf-8"};

/// What is pasted, too: older programs offer nothing else.
constexpr const char *latin_kind = "STRING", *plain_kind = "text/plain";
const std::array<std::string, 4> pasted_kinds{text_kinds[0], text_kinds[1], plain_kind, latin_kind};

/// A STRING is of Latin-1, as are those bytes of a plain text that are no UTF-8.
std::string text_of(const Fetched& fetched) {
    constexpr std::size_t looked_at = 4 * field_size;  // bytes; a field takes less
    std::string_view rest(reinterpret_cast<const char*>(fetched.bytes.data()),
                          std::min(fetched.bytes.size(), looked_at));
    std::string text;
    while (!rest.empty()) {
        const auto byte = static_cast<unsigned char>(rest.front());
        const Utf8Character next = fetched.kind == latin_kind ? Utf8Character{byte} : first_character(rest);
        text += utf8_of(next.code);
        rest.remove_prefix(next.size);
    }
    return text;
}

// What was copied here last, for as long as it is on the clipboard.
std::weak_ptr<const std::string> copied;

bool stands(int slot) { return is_text_field(slot) && gui::active[at(slot)] != 0; }

/// Nothing to copy would only take away what is there. True when the clipboard has it.
bool copy_part(int slot, FieldPart part) {
    std::array<char, field_size> bytes{};
    GUI_read_field(slot, bytes);
    if (part.is_empty()) return false;
    const auto text = std::make_shared<const std::string>(bytes.data() + part.start, bytes.data() + part.end);
    const bool offered =
        offer_to_clipboard({{text_kinds.begin(), text_kinds.end()}, [text](const std::string&, Bytes& encoded) {
                                encoded.assign(text->begin(), text->end());
                                return true;
                            }});
    if (offered) copied = text;
    return offered;
}

void copy_or_cut(int slot, bool cuts) {
    FieldPart part = selected_part(slot);
    if (part.is_empty()) part = {0, field_length(slot)};
    if (!copy_part(slot, part) || !cuts) return;
    if (selected_part(slot).is_empty()) select_all(slot);
    delete_selected(slot);
}

void paste_into_field(int slot) {
    serve_clipboard();  // another program may have copied just now
    if (const auto ours = copied.lock()) return type_text(slot, *ours);
    const Fetched fetched = fetch_from_clipboard(pasted_kinds, [slot] {
        update_screen(UPDATE_NORMAL);
        return exit_requested == 0 && stands(slot);
    });
    if (fetched.end == FETCH_DONE && stands(slot)) type_text(slot, text_of(fetched));
}

void serve_job(int job_slot) {
    const int slot = job::arg[at(job_slot)][0], what = job::arg[at(job_slot)][1];
    UA_clear_job(job_slot);
    if (!stands(slot)) return;
    if (what == FIELD_PASTES)
        paste_into_field(slot);
    else
        copy_or_cut(slot, what == FIELD_CUTS);
}

}  // namespace

void ask_field_clipboard(int slot, FieldClipboard what) {
    push_to_job(JOB_FIELD_CLIPBOARD, slot, what, 0, 0, 0, 0, 0, 0, 0);
}

void install_field_clipboard() { set_job_handler(JOB_FIELD_CLIPBOARD, serve_job); }

}  // namespace nubo
