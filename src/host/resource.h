// Numbers that the resource script and the program share. 1 and 2 stay free: the dialog manager sends them as commands
// for Enter and Esc.
#pragma once

#define RESOURCE_MAIN 100
#define RESOURCE_ABOUT 101
#define RESOURCE_LOGIN 102
#define RESOURCE_PASSWORDS 103
#define RESOURCE_GO_TO 104

#define COMMAND_NEW 200
#define COMMAND_OPEN 201
#define COMMAND_SAVE 202
#define COMMAND_SAVE_AS 203
#define COMMAND_EXIT 204
#define COMMAND_UNDO 205
#define COMMAND_REDO 206
#define COMMAND_COPY 207
#define COMMAND_PASTE 208
#define COMMAND_DELETE 209
#define COMMAND_REFRESH 210
#define COMMAND_STATUS_BAR 211
#define COMMAND_FOCUS_TABLE 212
#define COMMAND_SELECT_ALL 213
#define COMMAND_FILL_DOWN 214
#define COMMAND_FILL_SERIES 215
#define COMMAND_GO_TO 216
#define COMMAND_LOG_IN 217
#define COMMAND_LOG_OUT 218
#define COMMAND_SET_PASSWORDS 219
#define COMMAND_ABOUT 220
// One for each of the nine recent files.
#define COMMAND_RECENT_FIRST 300
#define COMMAND_RECENT_LAST 308

#define CHILD_STATUS_BAR 400
#define CHILD_PROGRESS 401
#define ABOUT_VERSION 410
// The sentence beside the fields of a dialog.
#define DIALOG_NOTE 411
#define LOGIN_WHY 412
#define LOGIN_LEVEL 413
#define LOGIN_PASSWORD 414
#define PASSWORD_LEVEL 415
#define PASSWORD_NEW 416
#define PASSWORD_AGAIN 417
#define CHANNEL_NUMBER 418
