// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>

/// A pop-up menu of names. To a screen reader it has the name that it is given; the toolkit would
/// tell its current text as its name.
class PopUp final : public QComboBox
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PopUp)

public:
    PopUp(const QString &accessibleName, QWidget *parent);
};
