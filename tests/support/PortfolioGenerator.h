#pragma once

#include <QByteArray>
#include <QDate>

/// What a made-up portfolio is to hold.
struct PortfolioSize {
    int tenants = 10;
    QDate start{2021, 1, 4};
    const char* frequency = "Week";
    /// Every second tenant has a rent balance, and so receipts; every fourth owes some of the last rents.
    bool balances = true;
    /// All names begin with the same characters, so that all codes clash.
    bool clashingNames = false;
    /// The tenants stand in an order that has nothing to do with their names.
    bool mixedOrder = false;
};

/// The text of a portfolio file. The same size always gives the same text.
QByteArray MakePortfolio(const PortfolioSize& size);
