// The platform as the program core sees it: small interfaces, implemented for real in
// src/platform and as fakes in tests. The core includes no toolkit header beyond QtCore.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>

namespace veldor {

// The states RTS and DTR take when a port opens.
struct PortLines {
    bool rts = false;
    bool dtr = false;
};

// A serial port as the link uses it: settings text ("4800,N,8,2"), an input buffer that is
// polled (never event driven), RTS and DTR lines, and RTS/CTS handshaking.
class SerialPort {
  public:
    virtual ~SerialPort() = default;
    // Opens the named port ("SIM", "/dev/ttyUSB0", ...) with its lines as given, set as early
    // as the system allows: a line that keys a rig must not key it for the moment of opening.
    // A port already open on the same device is restarted in place (input and output emptied,
    // settings and lines applied) without letting the device go, so its lines never move. On
    // failure returns false, the port closed, and puts the system's own reason in *reason.
    virtual bool open(const QString& name, const QString& settings, bool rtsCtsHandshake,
                      PortLines lines, QString* reason) = 0;
    virtual void close() = 0;
    virtual bool isOpen() const = 0;
    virtual int inBufferCount() = 0;
    virtual void clearInput() = 0;               // InBufferCount = 0
    virtual QByteArray input(int maxBytes) = 0;  // maxBytes 0: all that is there
    virtual void output(const QByteArray& bytes) = 0;
    virtual int outBufferCount() = 0;
    virtual void setRts(bool on) = 0;
    virtual void setDtr(bool on) = 0;
    virtual bool rts() const = 0;  // the state the program last gave the line
    // The device a stored port name stands for: a bare number is the system's n-th port, a
    // link is the device it leads to. Two names with the same device name the same port.
    virtual QString deviceName(const QString& name) const = 0;
    // The system's descriptor that turns readable when input comes, for a wait to wake on;
    // -1 when the port has none (a simulated rig), and then a wait looks each millisecond.
    virtual int descriptor() const { return -1; }
};

// Milliseconds since an arbitrary start (timeGetTime), and the wall clock.
class Clock {
  public:
    virtual ~Clock() = default;
    virtual uint32_t milliseconds() = 0;
    virtual QDateTime utcNow() = 0;
    virtual QDateTime localNow() = 0;
};

// The wait of the link. processEvents lets the pending events run; a sleep goes on letting
// events run as they come (a click, a client of rig sharing), and sleepUntil ends as soon as
// ready() holds: it is asked after every event, when input comes on the descriptor watch, and
// each millisecond when watch is -1 (kWatchEventsOnly: only after events, for a ready() that
// only an event can change). In tests the sleep advances a virtual clock and runs the
// events registered for each moment it passes.
class EventPump {
  public:
    static constexpr int kWatchEventsOnly = -2;
    virtual ~EventPump() = default;
    virtual void processEvents() = 0;
    void sleep(int milliseconds) { sleepUntil(milliseconds, -1, {}); }
    virtual void sleepUntil(int milliseconds, int watch, const std::function<bool()>& ready) = 0;
};

// A repeating timer; the program reads and sets its period and whether it runs.
class Timer {
  public:
    virtual ~Timer() = default;
    virtual void setEnabled(bool on) = 0;
    virtual bool enabled() const = 0;
    virtual void setInterval(int milliseconds) = 0;
    virtual int interval() const = 0;
};

// Text settings addressed by (application name, section, key); keys are case-insensitive.
class SettingsStore {
  public:
    virtual ~SettingsStore() = default;
    virtual QString get(const QString& appName, const QString& section, const QString& key,
                        const QString& defaultValue) = 0;
    virtual void save(const QString& appName, const QString& section, const QString& key,
                      const QString& value) = 0;
    // Several keys of one section, written to the store together.
    virtual void saveAll(const QString& appName, const QString& section,
                         const QList<QPair<QString, QString>>& values) {
        for (const auto& [key, value] : values) save(appName, section, key, value);
    }
    virtual QList<QPair<QString, QString>> getAll(const QString& appName,
                                                  const QString& section) = 0;
};

enum class MsgButtons { OK, OKCancel, YesNo, YesNoCancel, RetryCancel };
enum class MsgIcon { None, Information, Question, Exclamation, Critical };
enum class MsgResult { OK, Cancel, Yes, No, Retry };

class Dialogs {
  public:
    virtual ~Dialogs() = default;
    virtual MsgResult messageBox(const QString& text, const QString& title, MsgButtons buttons,
                                 MsgIcon icon) = 0;
    // Returns false on cancel.
    virtual bool inputBox(const QString& prompt, const QString& title, QString* text) = 0;
    // Empty on cancel.
    virtual QString browseForFolder(const QString& prompt) = 0;
    // The save dialog: a file name chosen in folder, with a filter of description and pattern
    // pairs separated by "|" ("Wave Files (*.wav)|*.wav|All Files (*.*)|*.*"), the pair
    // filterIndex (from 1) chosen at first. Empty on cancel. The dialog asks nothing about an
    // existing file: the program asks its own question.
    virtual QString saveFileName(const QString& title, const QString& folder, const QString& filter,
                                 int filterIndex) = 0;
    // A message that needs no answer and holds nothing up; a box by default.
    virtual void notice(const QString& text, const QString& title) {
        messageBox(text, title, MsgButtons::OK, MsgIcon::Information);
    }
    // The open dialog, with the same filter; empty on cancel. The file need not exist.
    virtual QString openFileName(const QString& title, const QString& folder, const QString& filter,
                                 int filterIndex) = 0;
};

// Folders and system facts the program asks about.
class System {
  public:
    virtual ~System() = default;
    virtual bool directoryExists(const QString& path) = 0;
    virtual QChar decimalSeparator() = 0;
    // The screen's size in twips, for window placement.
    virtual int screenWidthTwips() = 0;
    virtual int screenHeightTwips() = 0;
    virtual QString programFolder() = 0;
    virtual void endProcess() = 0;
    // Ends the process at once, saving nothing.
    virtual void abortProcess() = 0;
    // The system's warning sound: a change refused without a word.
    virtual void beep() {}
    // The serial ports the system has, each by its stable name with the description the
    // system gives of it ("" where it gives none).
    virtual QList<QPair<QString, QString>> serialPorts() { return {}; }
    // Logical pixels per inch of the screen: 96 for small fonts.
    virtual int logicalDpi() { return 96; }
    // Opens a document or web address with the desktop's own handler; false when none could.
    virtual bool openDocument(const QString& pathOrAddress) {
        (void)pathOrAddress;
        return false;
    }
    // Empties the clipboard and puts the text on it.
    virtual void setClipboardText(const QString& text) { (void)text; }
};

// The system's default printer, used as a line printer: plain lines of fixed-pitch text.
class Printer {
  public:
    virtual ~Printer() = default;
    // Whether the system has a printer at all.
    virtual bool available() = 0;
    // The font of the documents to come; false when it cannot be had.
    virtual bool setFont(const QString& family, int points) = 0;
    // The lines as one document, ended and sent; false, with the reason, when it could not be.
    virtual bool print(const QStringList& lines, QString* reason) = 0;
};

// Starts other programs and does not wait for them.
class Launcher {
  public:
    virtual ~Launcher() = default;
    // Starts a command line detached, its words split as a shell splits them (blanks, quotes
    // and backslashes) without a shell being run. False when it could not be started.
    virtual bool start(const QString& commandLine) = 0;
};

// The format a recording is made in: PCM, one channel, from the input device of the given
// index in the list of inputDevices().
struct WaveFormat {
    int device = 0;
    int channels = 1;
    int samplesPerSecond = 11025;
    int averageBytesPerSecond = 11025;
    int blockAlign = 1;
    int bitsPerSample = 8;
};

// Where a recording stands, as a media control reports its mode.
enum class AudioMode {
    Closed,     // no element open
    Open,       // a new element, nothing recorded yet
    Recording,  //
    Paused,     // recording held; a pause command goes on with it
    Stopped,    // recording ended; record again to add to the take
};

// The sound card's input recorded into one take, kept on disk as a wave file as it grows.
class AudioRecorder {
  public:
    virtual ~AudioRecorder() = default;
    // The names of the input devices the system has; empty where it has none.
    virtual QStringList inputDevices() = 0;
    // A new, empty element; a take not saved is dropped.
    virtual void open() = 0;
    // 0, or an error number that lastErrorText() explains.
    virtual int setFormat(const WaveFormat& format) = 0;
    // Records onto the end of the take; false (with lastErrorText()) when recording cannot
    // start.
    virtual bool record() = 0;
    // Holds the recording, or goes on with it when held; nothing in any other mode.
    virtual void pause() = 0;
    virtual void stop() = 0;
    // Writes the take to path, replacing a file there at once and whole; 0 or an error number.
    virtual int save(const QString& path) = 0;
    // Ends the element; a take not saved is dropped.
    virtual void close() = 0;
    virtual AudioMode mode() const = 0;
    // The length of the take so far.
    virtual int64_t takeMilliseconds() const = 0;
    virtual QString lastErrorText() const = 0;
};

// The program's windows other than the main one.
enum class FormId {
    frmSettings,
    frmSetMemory,
    frmScanner,
    frmCsvMem,
    frmConvert,
    frmRecord,
    frmXBandRepeat,
    frm450DSP,
    frmMeters,
    frmAbout,
};

// Shows and closes the other windows. The core fills a window's form struct (its load
// handler) before it asks for the window to be shown, and runs its unload handler before it
// asks for it to be closed; the window only shows the struct and forwards its events.
class Windows {
  public:
    virtual ~Windows() = default;
    // A modal window returns when it has been closed.
    virtual void show(FormId form, bool modal) = 0;
    virtual void hide(FormId form) = 0;
    virtual void close(FormId form) = 0;
    virtual bool shown(FormId form) const = 0;
};

// The listening side of rig sharing: a socket on which other programs connect.
class RigServer {
  public:
    virtual ~RigServer() = default;
    // Listens on the address and port, leaving any earlier ones; false with the system's
    // reason when they cannot be had.
    virtual bool listen(const QString& address, int port, QString* reason) = 0;
    // Stops listening and lets every client go.
    virtual void stop() = 0;
    virtual bool listening() const = 0;
    virtual int clientCount() const = 0;
    // Told by the tick once it has carried out the requests raised before it, before its
    // reading: the writes of the clients are answered then.
    virtual void requestsServed() = 0;
    // Whether a client's write waits for the tick to carry it out: the tick then cuts its
    // reading short and carries it out at once.
    virtual bool writeWaiting() const { return false; }
};

}  // namespace veldor
