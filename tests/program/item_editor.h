// The item editor on a machine with some pictures and sounds, as its tests drive it.
#pragma once

#include "editor/frm_edit.h"
#include "program/dialog_user.h"
#include "startup/path_parser.h"
#include "startup/shared_state.h"
#include "support/wav_file.h"

#include <string>
#include <vector>

class ItemEditor : public DialogUser {
protected:
    ItemEditor() {
        program.addPicture("C:\\pics\\a.bmp", {4, 2});
        for (const char* name : {"b.gif", "c.ico", "d.jpeg", "e.wmf", "f.txt", "g.jpg", "h.jpe"}) {
            program.machine.files().addFile(std::string("C:\\pics\\") + name, "no picture");
        }
        program.machine.files().addFolder("C:\\pics\\inner");
        program.machine.files().addFile("C:\\snd\\a.wav", wavFile(1000));
        for (const char* name : {"b.mp3", "c.mpeg", "d.mp2", "e.mpg", "f.txt", "g.wma"}) {
            program.machine.files().addFile(std::string("C:\\snd\\") + name, "no sound");
        }
        program.startNothing();
    }

    /// Opens it on a row, as the designer does; paths that are "" leave the lists where they are.
    frmEdit& open(const std::string& image, const std::string& sound, const std::string& dissolve,
                  const std::string& comment) {
        edit.load();
        PathParser parser;
        const auto point = [&](const std::string& path, toolkit::DriveList& drives,
                               toolkit::FolderList& folders) {
            parser.setFileSpec(path);
            if (!path.empty()) {
                drives.setDrive(parser.Path.substr(0, 1));
                folders.setPath(parser.Path);
            }
            return path.empty() ? std::string() : parser.FileName;
        };
        const std::string imageName = point(image, edit.Drive1, edit.Dir1);
        const std::string soundName = point(sound, edit.Drive2, edit.Dir2);
        edit.InitEdit(imageName, soundName, dissolve, comment);
        edit.show();
        return edit;
    }
    frmEdit& open(const std::string& dissolve = "Normal", const std::string& comment = "Comment") {
        return open("C:\\pics\\a.bmp", "C:\\snd\\a.wav", dissolve, comment);
    }

    void type(const std::string& text) {
        program.machine.user().giveFocus(edit.txtComment.hWnd());
        for (const char character : text) {
            program.machine.user().type(character);
        }
        program.advance(0);
    }
    /// Image, sound, transition, comment.
    std::vector<int> flags() const {
        return {edit.ImageChanged, edit.SoundChanged, edit.DissolveChanged, edit.CommentChanged};
    }
    std::vector<std::string> texts(const toolkit::ItemList& list) const {
        std::vector<std::string> all;
        for (std::int16_t index = 0; index < list.listCount(); ++index) {
            all.push_back(list.list(index));
        }
        return all;
    }

    frmEdit& edit = program.application().form<frmEdit>();
};
