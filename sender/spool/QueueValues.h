// Port: the values of the queue's registry key.
#pragma once

#include <optional>
#include <vector>

#include "platform/Text.h"

namespace tellwick::sender {

class QueueValues {
public:
    virtual ~QueueValues() = default;

    // Of the key "SMSQueue" below the program's own, in no order to rely on. None when there is no
    // such key; an empty optional when it cannot be read.
    virtual std::optional<std::vector<Text>> Names() = 0;

    // As Registry does it, for the key that Names has found last.
    virtual std::optional<Text> Read(TextView name) = 0;
    virtual bool Delete(TextView name) = 0;
};

}  // namespace tellwick::sender
