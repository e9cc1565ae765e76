#pragma once

// Takes the panels' messages for the life of the object, in the order shown.

#include "KRNPanelMessages.h"

#include <string>
#include <vector>

class KRNMessageCapture {
public:
    struct Message {
        std::string caption;
        std::string text;
    };

    KRNMessageCapture() {
        m_previous = KRNSetMessageHandler([this](const std::string& caption, const std::string& text) {
            m_messages.push_back({caption, text});
        });
    }
    ~KRNMessageCapture() { KRNSetMessageHandler(m_previous); }
    KRNMessageCapture(const KRNMessageCapture&) = delete;
    KRNMessageCapture& operator=(const KRNMessageCapture&) = delete;

    const std::vector<Message>& Messages() const { return m_messages; }
    std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (const Message& m : m_messages) texts.push_back(m.text);
        return texts;
    }
    void Clear() { m_messages.clear(); }

private:
    KRNMessageHandler m_previous;
    std::vector<Message> m_messages;
};
