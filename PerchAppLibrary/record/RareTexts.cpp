#include <PerchAppLibrary/record/RareTexts.hpp>

#include <PerchAppLibrary/container/NoDestructor.hpp>

namespace PerchAppLibrary {

const std::string& RareTexts::empty() noexcept {
    static const NoDestructor<std::string> none;
    return *none;
}

const std::string& RareTexts::find(unsigned number) const noexcept {
    for (const Node* node = m_first.get(); node != nullptr; node = node->next.get())
        if (node->number == number)
            return node->text;
    return empty();
}

void RareTexts::set(unsigned number, std::string&& text) {
    for (Node* node = m_first.get(); node != nullptr; node = node->next.get())
        if (node->number == number) {
            node->text = std::move(text);
            return;
        }
    if (text.empty())
        return;
    std::unique_ptr<Node> added(new Node{number, std::move(text), nullptr});
    added->next = std::move(m_first);
    m_first = std::move(added);
}

} // namespace PerchAppLibrary
