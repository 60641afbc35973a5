#include "journal/JournalRecord.h"

#include "journal/JournalCode.h"

namespace nesk {

namespace {

// A menu file begins with a block or a comment, so neither is taken for the other. The number is the version
// of the format.
constexpr std::string_view MagicLine = "NeskManager unsaved changes 1\r\n";

// These numbers are stored in journals.
enum class Kind { Header = 1, Step, End };

// The fields of a time, each from 0 on.
constexpr int std::tm::*TimeFields[] = {&std::tm::tm_year, &std::tm::tm_mon, &std::tm::tm_mday,
                                        &std::tm::tm_hour, &std::tm::tm_min, &std::tm::tm_sec};
constexpr int LargestTimeField = 9999;

JournalHeader ReadHeader(JournalDecoder& in) {
    JournalHeader header;
    header.owner = in.Text();
    header.menuPath = in.Text();
    header.hash = in.Text();
    header.counters = in.Text();
    return header;
}

JournalStep ReadStep(JournalDecoder& in) {
    JournalStep step;
    for (int std::tm::*const field : TimeFields)
        step.time.*field = in.NumberFrom(0, LargestTimeField);
    step.changes = in.Number();
    step.events = in.Rest();
    return step;
}

// Adds the contents of a frame to a journal.
void ReadFrame(std::string_view payload, Journal& journal) {
    JournalDecoder in(payload);
    const auto kind = static_cast<Kind>(in.NumberFrom(1, static_cast<int>(Kind::End)));
    if ((kind == Kind::Header) == journal.header.has_value() || journal.isEnded)
        throw JournalDamage("a frame is not in its place");
    switch (kind) {
    case Kind::Header: journal.header = ReadHeader(in); return;
    case Kind::Step: journal.steps.push_back(ReadStep(in)); return;
    case Kind::End: journal.isEnded = true; return;
    }
}

} // namespace

std::string JournalRecord::Begin(const JournalHeader& header) {
    std::string payload;
    JournalEncoder out(payload);
    out.Number(static_cast<std::uint64_t>(Kind::Header));
    out.Text(header.owner);
    out.Text(header.menuPath);
    out.Text(header.hash);
    out.Text(header.counters);
    std::string bytes(MagicLine);
    JournalFrame::Append(bytes, payload);
    return bytes;
}

void JournalRecord::AppendStep(std::string& bytes, const JournalStep& step) {
    std::string payload;
    JournalEncoder out(payload);
    out.Number(static_cast<std::uint64_t>(Kind::Step));
    for (int std::tm::*const field : TimeFields)
        out.Number(static_cast<std::uint64_t>(step.time.*field));
    out.Number(step.changes);
    payload += step.events;
    JournalFrame::Append(bytes, payload);
}

std::string JournalRecord::End() {
    std::string payload;
    JournalEncoder(payload).Number(static_cast<std::uint64_t>(Kind::End));
    std::string bytes;
    JournalFrame::Append(bytes, payload);
    return bytes;
}

Journal Journal::Read(std::string_view bytes) {
    Journal journal;
    journal.isJournal = bytes.starts_with(MagicLine) || MagicLine.starts_with(bytes);
    if (!journal.isJournal || bytes.size() < MagicLine.size()) return journal;
    bytes.remove_prefix(MagicLine.size());
    std::string_view payload;
    JournalFrame::State state = JournalFrame::Take(bytes, payload);
    try {
        for (; state == JournalFrame::State::Whole; state = JournalFrame::Take(bytes, payload))
            ReadFrame(payload, journal);
    } catch (const JournalDamage&) {
        journal.isDamaged = true;
    }
    journal.isDamaged |= state == JournalFrame::State::Damaged;
    return journal;
}

} // namespace nesk
