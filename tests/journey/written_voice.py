"""A voice for the screen reader that prints what it would say, a line for each utterance."""

from orca import speechserver


class SpeechServer(speechserver.SpeechServer):
    _the_one = None

    @staticmethod
    def getFactoryName():
        return "Written Voice"

    @classmethod
    def getSpeechServers(cls):
        return [cls.getSpeechServer()]

    @classmethod
    def getSpeechServer(cls, info=None):
        cls._the_one = cls._the_one or cls()
        return cls._the_one

    @classmethod
    def shutdownActiveServers(cls):
        cls._the_one = None

    def speak(self, text=None, acss=None, interrupt=True):
        if isinstance(text, str) and text.strip():
            print(" ".join(text.split()), flush=True)

    def speakCharacter(self, character, acss=None):
        self.speak(character)
