#include <dom/Dispatch.h>

#include "Mailbox.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace dom {

/// Delivers one batch of messages.
class Dispatcher {
public:
    void Take(std::shared_ptr<Mailbox> const& mailbox) {
        for (Message& message : mailbox->TakeAll()) {
            letters_.push_back({mailbox, std::move(message)});
        }
    }

    size_t Deliver() {
        std::ranges::sort(letters_, {}, [](Letter const& l) { return l.message.sequence; });
        size_t handled = 0;
        for (Letter& letter : letters_)
            handled += DeliverOne(letter) ? 1 : 0;
        return handled;
    }

    static std::shared_ptr<Mailbox> const& MailboxOf(Observer const& observer) {
        return observer.mailbox_;
    }

private:
    struct Letter {
        std::shared_ptr<Mailbox> mailbox;
        Message message;
    };

    static bool DeliverOne(Letter& letter) {
        MessageReader reader(std::move(letter.message.values));
        if (letter.message.proxy->IsClosed() || reader.AtEnd()) return false;
        du::SmartPtr<Observer> const observer = letter.mailbox->GetObserver();
        if (!observer) return false;
        uint8_t const id = reader.GetUInt8Value();
        observer->HandleEvent(id, reader);
        return true;
    }

    std::vector<Letter> letters_;
};

size_t Dispatch() {
    Dispatcher dispatcher;
    for (auto const& mailbox : Mailbox::All())
        dispatcher.Take(mailbox);
    return dispatcher.Deliver();
}

size_t Dispatch(du::SmartPtr<Observer> const& observer) {
    if (!observer) return 0;
    Dispatcher dispatcher;
    dispatcher.Take(Dispatcher::MailboxOf(*observer));
    return dispatcher.Deliver();
}

}  // namespace dom
