#pragma once

class MainWindow;
class QString;

// Waits until the window's loads have ended and its views have painted, then saves what the window
// shows as a picture: from the screen when there is one, else the window's own rendering.
// False when the picture could not be written.
bool grabWhenLoaded(MainWindow& window, const QString& path);
