#pragma once

class QWidget;

namespace gallery {

class EventLog;
class Sheet;

// One sheet for each control, with the control in every state that it can have. What its samples raise goes
// to the log.
Sheet* ButtonPage(EventLog& log, QWidget* parent);
Sheet* TextBoxPage(EventLog& log, QWidget* parent);
Sheet* DatePage(EventLog& log, QWidget* parent);
Sheet* GridPage(EventLog& log, QWidget* parent);
Sheet* SkinPage(QWidget* parent);
Sheet* GroupBoxPage(EventLog& log, QWidget* parent);
Sheet* HeadingPage(EventLog& log, QWidget* parent);

}  // namespace gallery
