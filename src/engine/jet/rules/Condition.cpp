#include "engine/jet/rules/Condition.h"

#include <algorithm>

namespace engine::jet {

namespace {

Truth TruthOf(bool holds) {
    return holds ? Truth::Yes : Truth::No;
}

Truth Opposite(Truth truth) {
    return truth == Truth::Open ? truth : TruthOf(truth == Truth::No);
}

Truth EvaluateOrder(const Condition& condition, const std::vector<Value>& row) {
    const auto order = Compare(Evaluate(condition.operands[0], row), Evaluate(condition.operands[1], row));
    if (!order) {
        return Truth::Open;
    }
    return TruthOf(condition.kind == Condition::Kind::Equal ? *order == 0 : *order < 0);
}

Truth EvaluateLike(const Condition& condition, const std::vector<Value>& row) {
    const Value value = Evaluate(condition.operands[0], row);
    const auto* text = std::get_if<QString>(&value);
    return text == nullptr ? Truth::Open : TruthOf(condition.pattern->Matches(*text));
}

// The first part that settles it does so; an open one leaves the whole open if none does.
Truth EvaluateParts(const Condition& condition, const std::vector<Value>& row, Truth settling) {
    Truth whole = Opposite(settling);
    for (const Condition& part : condition.parts) {
        const Truth truth = Evaluate(part, row);
        if (truth == settling) {
            return truth;
        }
        whole = truth == Truth::Open ? truth : whole;
    }
    return whole;
}

}  // namespace

Truth Evaluate(const Condition& condition, const std::vector<Value>& row) {
    switch (condition.kind) {
        case Condition::Kind::And:
            return EvaluateParts(condition, row, Truth::No);
        case Condition::Kind::Or:
            return EvaluateParts(condition, row, Truth::Yes);
        case Condition::Kind::Not:
            return Opposite(Evaluate(condition.parts[0], row));
        case Condition::Kind::IsNull:
            return TruthOf(IsNull(Evaluate(condition.operands[0], row)));
        case Condition::Kind::Like:
            return EvaluateLike(condition, row);
        default:
            return EvaluateOrder(condition, row);
    }
}

}  // namespace engine::jet
