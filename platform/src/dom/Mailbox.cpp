#include "Mailbox.h"

#include <atomic>
#include <utility>

namespace dom {

namespace {

struct Registry {
    std::mutex mutex;
    std::vector<std::weak_ptr<Mailbox>> mailboxes;  // guarded by mutex

    static Registry& Get() {
        static Registry& registry = *new Registry;  // outlives static observers
        return registry;
    }
};

}  // namespace

std::shared_ptr<Mailbox> Mailbox::Make(Observer* observer) {
    std::shared_ptr<Mailbox> mailbox(new Mailbox(observer));
    Registry& registry = Registry::Get();
    std::lock_guard const guard(registry.mutex);
    std::erase_if(registry.mailboxes, [](auto const& known) { return known.expired(); });
    registry.mailboxes.push_back(mailbox);
    return mailbox;
}

std::vector<std::shared_ptr<Mailbox>> Mailbox::All() {
    std::vector<std::shared_ptr<Mailbox>> all;
    Registry& registry = Registry::Get();
    std::lock_guard const guard(registry.mutex);
    for (auto const& known : registry.mailboxes) {
        if (auto mailbox = known.lock()) all.push_back(std::move(mailbox));
    }
    return all;
}

void Mailbox::Close() {
    std::deque<Message> dropped;  // goes after the mutex is free: it may hold anything
    std::lock_guard const guard(mutex_);
    observer_ = nullptr;
    dropped.swap(queue_);
}

void Mailbox::Put(du::SmartPtr<ObserverProxy> const& proxy,
                  std::vector<MessageReader::Value> values) {
    static std::atomic<uint64_t> s_sequence{0};
    std::lock_guard const guard(mutex_);
    if (observer_) queue_.push_back({s_sequence++, proxy, std::move(values)});
}

std::deque<Message> Mailbox::TakeAll() {
    std::lock_guard const guard(mutex_);
    return std::exchange(queue_, {});
}

du::SmartPtr<Observer> Mailbox::GetObserver() {
    std::lock_guard const guard(mutex_);
    if (!observer_ || !counted_->TryAddRef()) return nullptr;
    return du::Adopt(observer_);
}

}  // namespace dom
