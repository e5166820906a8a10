// The radio behind its link, as the program uses it: how it is reached, the question once a second how it is, and
// whether an exchange is under way. The exchanges themselves are begun by the control.
#pragma once

#include <string>

#include "VexloRadioLink.h"
#include "com/kit/pointer.h"
#include "host/embed/link_events.h"

namespace telvar::host {

class Radio final : private LinkListener {
public:
    // Hears what the link tells, after the radio has noted it; outlives this.
    explicit Radio(LinkListener& listener) noexcept : listener_(listener) {}
    Radio(const Radio&) = delete;
    Radio& operator=(const Radio&) = delete;
    Radio(Radio&&) = delete;
    Radio& operator=(Radio&&) = delete;
    ~Radio() { close(); }

    // Throws com::ComFailure where the link does not have the events of one; there is then no radio.
    void attach(com::ComPointer<IRadioLink> link);
    // No event comes any more; what runs is aborted.
    void close() noexcept;

    // Null without an installed link.
    [[nodiscard]] IRadioLink* link() const noexcept { return link_.get(); }
    // Between the start of an exchange and its end; questions how the radio is do not count.
    [[nodiscard]] bool exchanging() const;
    [[nodiscard]] bool simulated() const { return connection() == L"simulated"; }

    // To be called once a second. Asks how the radio is, unless that is paused, still being answered, or an exchange
    // is under way, of this link or of somebody else who has marked the store busy: the question's end would take that
    // mark away. The listener's statusReported tells.
    void poll(bool storeBusy);
    // Until the next exchange ends. A pause that none follows ends by itself.
    void pausePolling() noexcept { pausedPolls_ = longestPause; }
    void resumePolling() noexcept { pausedPolls_ = 0; }

    // Ends what runs at its next frame; with nothing running the end is reported at once. Throws com::ComFailure.
    void cancel();

    // While it is asked how it is.
    [[nodiscard]] bool asking() const noexcept { return asking_; }
    // Begins to send what an earlier send has kept. Throws com::ComFailure where the link does not take it.
    void restore(const std::wstring& backup);
    // Full path of the folder of those backups.
    [[nodiscard]] std::wstring backupFolder() const;

    // As the link's properties of those names; what cannot be understood throws com::ComFailure with one sentence.
    [[nodiscard]] std::wstring connection() const;
    void setConnection(const std::wstring& address);
    [[nodiscard]] std::wstring faults() const;
    void setFaults(const std::wstring& faults);
    [[nodiscard]] std::wstring traceFile() const;
    // A name alone means the present folder.
    void setTraceFile(const std::wstring& path);
    void setStateFile(const std::wstring& path);

private:
    // In polls, which is in seconds. The control pauses the polling right before it uses the link.
    static constexpr int longestPause = 5;

    void linkProgressed(long percent) override { listener_.linkProgressed(percent); }
    void exchangeEnded(long task, bool succeeded, const std::wstring& message) override;
    void statusReported(bool answered, const std::wstring& message) override;

    LinkListener& listener_;
    com::ComPointer<IRadioLink> link_;
    EventConnection events_;
    bool asking_ = false;
    int pausedPolls_ = 0;
};

}  // namespace telvar::host
