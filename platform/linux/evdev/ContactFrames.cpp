#include "platform/linux/evdev/ContactFrames.h"

#include <algorithm>

namespace brimlow::platform {

namespace {

bool lifted(const MTFinger& finger) {
    return finger.state == MTContactLifted;
}

bool touches(const MTFinger& finger) {
    return finger.state == MTContactBegan || finger.state == MTContactTouching;
}

} // namespace

std::vector<ContactFrames::Pad>::iterator ContactFrames::find(PadId pad) {
    return std::find_if(pads_.begin(), pads_.end(),
                        [&](const Pad& each) { return each.id == pad; });
}

ContactFrames::PadId ContactFrames::addPad(std::size_t maximumContacts) {
    std::size_t most = maximumContacts;
    for (const Pad& pad : pads_)
        most += pad.contacts.capacity();
    merged_.reserve(most);
    pads_.push_back({++lastId_, {}});
    pads_.back().contacts.reserve(maximumContacts);
    return lastId_;
}

void ContactFrames::update(PadId pad, std::span<const MTFinger> contacts, double timestamp) {
    post(pad, contacts, timestamp);
    const bool anyLifted = std::any_of(contacts.begin(), contacts.end(), lifted);
    const bool anyTouching = std::any_of(merged_.begin(), merged_.end(), touches);
    const auto found = find(pad);
    if (found == pads_.end())
        return;
    found->contacts.clear();
    for (const MTFinger& finger : contacts) {
        if (lifted(finger))
            continue;
        found->contacts.push_back(finger);
        if (finger.state == MTContactBegan)
            found->contacts.back().state = MTContactTouching;
    }
    if (anyLifted && !anyTouching)
        post(0, {}, timestamp);
}

void ContactFrames::removePad(PadId pad, double timestamp) {
    const auto found = find(pad);
    if (found == pads_.end())
        return;
    const bool hadContacts = !found->contacts.empty();
    pads_.erase(found);
    if (hadContacts)
        post(0, {}, timestamp);
}

/// One frame: `contacts` for the pad they come from, and what goes on elsewhere.
void ContactFrames::post(PadId updated, std::span<const MTFinger> contacts, double timestamp) {
    ++frame_;
    merged_.clear();
    for (const Pad& pad : pads_) {
        if (pad.id == updated)
            merged_.insert(merged_.end(), contacts.begin(), contacts.end());
        else
            merged_.insert(merged_.end(), pad.contacts.begin(), pad.contacts.end());
    }
    for (MTFinger& finger : merged_) {
        finger.frame = frame_;
        finger.timestamp = timestamp;
    }
    sink_(merged_, timestamp, frame_);
}

} // namespace brimlow::platform
