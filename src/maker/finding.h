// What there is to say about a skin, and where.
#pragma once

#include <string>
#include <vector>

#include "maker/trial.h"

/// One thing that a maker would want to know.
struct Finding {
    Text File;         ///< The skin file, or the shape file of its lights.
    Text Section, Key; ///< Empty where it is about more than one.
    Text Words;

    bool operator==(const Finding&) const = default;
};

/// "FILE: [SECTION] Key: words", with the path as the machine writes it and no control characters.
[[nodiscard]] std::string LineOf(const Finding& finding);

/// Collects findings on one skin.
class Report {
public:
    explicit Report(const ::Trial& trial) : Trial(trial) {}

    /// Says something about the key that fills `field`.
    void At(const void* field, const Text& words);
    /// Says something about a section of the skin file, or all of the file.
    void In(const Text& section, const Text& words);
    void Add(Finding finding) { Findings.push_back(std::move(finding)); }

    const ::Trial& Trial;
    std::vector<Finding> Findings;
};

/// A value between quotation marks, a long one cut.
[[nodiscard]] Text Quoted(TextView value);

/// What to add where a value didn't do and looks as if a remark stood behind it; mostly empty.
[[nodiscard]] Text RemarkWords(TextView value);

/// "W x H pixels".
[[nodiscard]] Text SizeWords(std::int64_t widthPx, std::int64_t heightPx);
