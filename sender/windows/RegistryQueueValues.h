// The queue's values in the registry.
#pragma once

#include "spool/QueueValues.h"

namespace tellwick::sender {

class RegistryQueueValues : public QueueValues {
public:
    std::optional<std::vector<Text>> Names() override;
};

}  // namespace tellwick::sender
